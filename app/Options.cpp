#include "app/Options.h"

#include "app/BatchExport.h"

#include <QFile>
#include <QFileInfo>

const char* const hostUsage =
    "usage: iccp-host [PROJECT.json] [--unit N] [--headless] [--print-datarun]\n"
    "                 [--screenshot FILE.png] [--plugin PATH] [--timing]\n"
    "                 [--expand VIEW] [--click VIEW:TEXT] [--screenshot-of NAME]\n"
    "                 [--check] [--list] [--no-save] [--lint [--pdu BYTES]]\n"
    "                 [--diff [OTHER | A B]] [--export DIR [--save]]\n"
    "\n"
    "Opens the ICCP server configuration form for one unit of a host project.\n"
    "  PROJECT.json          project of the stand-in host, saved back after the form\n"
    "                        closes; without it the built-in demo project is used\n"
    "  --unit N              the N-th unit (from 0) of the project, counted over all\n"
    "                        directions in the file's order\n"
    "  --list                print the units with their numbers for --unit and stop\n"
    "  --no-save             leave the project file as it is\n"
    "  --headless            offscreen (unless QT_QPA_PLATFORM says otherwise); the\n"
    "                        form is closed as soon as it is shown\n"
    "  --print-datarun       print the unit's $DATARUN after the form has closed\n"
    "  --screenshot FILE.png save a picture of the form once it is shown\n"
    "  --expand VIEW         open the tree view of that object name all the way down\n"
    "  --click VIEW:TEXT     click the first row whose text begins with TEXT in the\n"
    "                        view of that name; --expand and --click run in order,\n"
    "                        before the picture\n"
    "  --screenshot-of NAME  picture only the widget of that object name\n"
    "  --plugin PATH         the plug-in library to load\n"
    "  --timing              print to stderr the seconds of the project's load, the\n"
    "                        form's opening (call to first paint) and closing (close\n"
    "                        event to return, $DATARUN included), the save and the\n"
    "                        teardown, and the peak memory\n"
    "  --check               headless, runs the form's \"Корректность тегов\", prints\n"
    "                        one line for each tag or variable that does not fit and\n"
    "                        answers Cancel; the project file is not written. Exit\n"
    "                        status 0 all fits, 1 something does not, 2 no check ran\n"
    "  --lint                headless, checks the model that the form writes for the\n"
    "                        unit against what a TASE.2 peer accepts; one line per\n"
    "                        finding; the project file is not written. Exit status\n"
    "                        0 no error, 1 errors, 2 no check ran\n"
    "  --pdu BYTES           the largest data set --lint lets pass (default 32000)\n"
    "  --diff [OTHER]        headless, compares the model that the form writes for the\n"
    "                        unit with OTHER (.blt, .xml or a saved $DATARUN), or\n"
    "                        without OTHER with the unit's stored $DATARUN; \"-\" lines\n"
    "                        are only in OTHER, \"+\" only in the form's model. The\n"
    "                        project file is not written\n"
    "  --diff A B            compares two model files, without a project. Exit status\n"
    "                        of --diff: 0 the models agree, 1 they differ, 2 a model\n"
    "                        could not be read\n"
    "  --export DIR          headless, runs the form's \"Сохранить BilateralTable в\n"
    "                        файл\" into DIR/<ied_name>.blt with the CSV beside it (or\n"
    "                        .xml, no CSV, when the unit's sclcomplete is set) and\n"
    "                        closes the form, which writes $DATARUN. Exit status 0\n"
    "                        done, 1 the project or unit is not usable, 2 bad arguments\n"
    "  --save                with --export: write the project file back\n";

namespace {

// A picture goes only to a ".png" name, and replaces nothing but a picture.
bool PictureNameFits(const QString& name, QString& error) {
    if (!name.endsWith(".png", Qt::CaseInsensitive)) {
        error = "--screenshot takes a name ending in \".png\": " + name;
        return false;
    }
    QFile file(name);
    if (!file.exists())
        return true;
    if (!QFileInfo(name).isDir() && file.open(QIODevice::ReadOnly) &&
        file.read(8) == QByteArray("\x89PNG\r\n\x1a\n", 8))
        return true;
    error = "--screenshot would write over " + name + ", which is not a PNG picture";
    return false;
}

// The arguments after --diff that name model files: up to two, not
// options and not the project.
void TakeDiffFiles(const QStringList& args, int& i, HostOptions& options) {
    while (options.diffFiles.size() < 2 && i + 1 < args.size() && !args[i + 1].startsWith('-') &&
           !args[i + 1].endsWith(".json", Qt::CaseInsensitive))
        options.diffFiles << args[++i];
}

bool ModelToolsFit(const HostOptions& options, QString& error) {
    if (options.lint && options.diff)
        error = "--lint and --diff run one at a time";
    else if (options.diffFiles.size() == 2 && !options.project.isEmpty())
        error = "--diff A B compares two model files and takes no project";
    return error.isEmpty();
}

} // namespace

bool ParseOptions(const QStringList& args, HostOptions& options, QString& error) {
    for (int i = 0; i < args.size(); ++i) {
        const QString& arg = args[i];
        const bool takesValue = arg == "--unit" || arg == "--screenshot" || arg == "--plugin" ||
                                arg == "--expand" || arg == "--click" || arg == "--screenshot-of" ||
                                arg == "--export";
        if (takesValue && i + 1 == args.size()) {
            error = arg + " needs a value";
            return false;
        }
        if (arg == "--unit") {
            bool ok = false;
            options.unit = args[++i].toInt(&ok);
            if (!ok || options.unit < 0) {
                error = "--unit takes a number from 0: " + args[i];
                return false;
            }
        } else if (arg == "--screenshot") {
            options.screenshot = args[++i];
            if (!PictureNameFits(options.screenshot, error))
                return false;
        } else if (arg == "--screenshot-of") {
            options.screenshotOf = args[++i];
        } else if (arg == "--expand") {
            UiStep step;
            step.kind = UiStep::Expand;
            step.view = args[++i];
            options.steps << step;
        } else if (arg == "--click") {
            UiStep step;
            if (!ParseClickStep(args[++i], step)) {
                error = "--click takes VIEW:TEXT: " + args[i];
                return false;
            }
            options.steps << step;
        } else if (arg == "--export") {
            options.exportDir = args[++i];
            if (!ExportFolderFits(options.exportDir, error))
                return false;
        } else if (arg == "--save") {
            options.save = true;
        } else if (arg == "--plugin") {
            options.plugin = args[++i];
        } else if (arg == "--headless") {
            options.headless = true;
        } else if (arg == "--timing") {
            options.timing = true;
        } else if (arg == "--check") {
            options.check = true;
        } else if (arg == "--list") {
            options.list = true;
        } else if (arg == "--no-save") {
            options.noSave = true;
        } else if (arg == "--print-datarun") {
            options.printDatarun = true;
        } else if (arg == "--lint") {
            options.lint = options.headless = true;
        } else if (arg == "--pdu") {
            bool ok = false;
            options.pdu = i + 1 < args.size() ? args[++i].toInt(&ok) : 0;
            if (!ok || options.pdu <= 0) {
                error = "--pdu takes a number of bytes above 0";
                return false;
            }
        } else if (arg == "--diff") {
            options.diff = options.headless = true;
            TakeDiffFiles(args, i, options);
        } else if (arg == "-h" || arg == "--help") {
            options.help = true;
        } else if (arg.startsWith('-')) {
            error = "unknown option " + arg;
            return false;
        } else if (options.project.isEmpty()) {
            options.project = arg;
        } else {
            error = "one project file only: " + arg;
            return false;
        }
    }
    if (options.save && options.exportDir.isEmpty()) {
        error = "--save goes with --export; other runs save anyway";
        return false;
    }
    if (!options.exportDir.isEmpty() &&
        (options.check || options.lint || options.diff || !options.screenshot.isEmpty() ||
         !options.steps.isEmpty())) {
        error = "--export runs alone: no --check, --lint, --diff, --screenshot, --expand or "
                "--click beside it";
        return false;
    }
    return ModelToolsFit(options, error);
}
