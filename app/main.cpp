// iccp-host: the stand-in host configurator's launcher. It opens a project
// (or the demo), loads the plug-in by name and runs the form for one unit.

#include "app/BatchExport.h"
#include "app/FormWatcher.h"
#include "app/ModelTools.h"
#include "app/Options.h"
#include "app/PluginLoader.h"
#include "app/RunTimer.h"
#include "app/TagCheck.h"
#include "app/Units.h"
#include "host/DemoProject.h"
#include "host/ProjectFile.h"

#include <QApplication>
#include <QDir>
#include <cerrno>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A run that could not be made ends with 1; a check, lint or diff that could
// not be made with 2, apart from the 1 of one that found something.
int Fail(const QString& message, const HostOptions& options) {
    fprintf(stderr, "iccp-host: %s\n", qPrintable(message));
    return options.check || options.lint || options.diff ? 2 : 1;
}

void PrintDatarun(HostObject* unit) {
    const QByteArray text = unit->get("$DATARUN").toByteArray();
    fwrite(text.constData(), 1, size_t(text.size()), stdout);
    if (!text.isEmpty() && !text.endsWith('\n'))
        fputc('\n', stdout);
    fflush(stdout);
}

// Headless when asked, when a check, list or export needs no window, and
// when there is no display to show one on.
void ChoosePlatform(HostOptions& options) {
    options.headless =
        options.headless || options.check || options.list || !options.exportDir.isEmpty();
    const bool noPlatform = qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    if (!options.headless && noPlatform && qEnvironmentVariableIsEmpty("DISPLAY") &&
        qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
        fprintf(stderr, "iccp-host: no display, so the form runs headless\n");
        options.headless = true;
    }
    // A platform named by the caller stands, so that a headless run can be
    // pictured on a virtual display.
    if (options.headless && noPlatform)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt makes this folder itself when it is missing, but warns on every run.
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        const QByteArray runtime =
            QDir::tempPath().toLocal8Bit() + "/runtime-" + QByteArray::number(uint(getuid()));
        if (mkdir(runtime.constData(), 0700) == 0 || errno == EEXIST)
            qputenv("XDG_RUNTIME_DIR", runtime);
    }
}

// What a run prints once the form has closed: an exit status when the run
// ends here, otherwise -1, with the check's misfits counted.
int Conclude(const HostOptions& options, HostObject* unit, const FormWatcher& watcher,
             const QByteArray& stored, int& misfits) {
    if (options.printDatarun)
        PrintDatarun(unit);
    if (!options.screenshot.isEmpty() && !watcher.formSeen())
        fprintf(stderr, "iccp-host: no form was shown, so no screenshot was taken\n");
    if (!watcher.error().isEmpty())
        return Fail(watcher.error(), options);
    if ((options.lint || options.diff) && watcher.formSeen())
        return RunModelTool(options, stored, unit->get("$DATARUN").toByteArray());
    if ((options.check || options.lint || options.diff) && !watcher.formSeen())
        return Fail("no form was shown, so nothing was checked", options);
    const QStringList rows =
        options.check ? DescribeCheckRows(unit, watcher.checkRows()) : QStringList();
    for (const QString& line : rows)
        fprintf(stdout, "%s\n", line.toUtf8().constData());
    misfits = rows.size();
    return -1;
}

bool LoadPlugin(const HostOptions& options, PluginLoader& plugin, QString& error) {
    const QString path = options.plugin.isEmpty() ? PluginLoader::defaultPath() : options.plugin;
    if (!plugin.load(path, &error))
        return false;
    uint64_t major = 0, minor = 0, build = 0;
    const char* author = nullptr;
    plugin.version(&major, &minor, &build, nullptr, &author);
    fprintf(stderr, "iccp-host: %s %llu.%llu.%llu, %s\n", qPrintable(path),
            static_cast<unsigned long long>(major), static_cast<unsigned long long>(minor),
            static_cast<unsigned long long>(build), author ? author : "");
    return true;
}

} // namespace

int main(int argc, char** argv) {
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args << QString::fromLocal8Bit(argv[i]);
    HostOptions options;
    QString error;
    if (!ParseOptions(args, options, error)) {
        fprintf(stderr, "iccp-host: %s\n%s", qPrintable(error), hostUsage);
        return 2;
    }
    if (options.help) {
        fputs(hostUsage, stdout);
        return 0;
    }
    if (options.diffFiles.size() == 2)
        return DiffModelFiles(options);
    ChoosePlatform(options);
    // Every argument was the program's own: Qt sees none of them, or it would
    // take --plugin for its own -plugin.
    int qtArgc = 1;
    QApplication app(qtArgc, argv);

    RunTimer timer;
    HostProject project;
    timer.mark(RunTimer::LoadStart);
    if (options.project.isEmpty())
        BuildDemoProject(project);
    else if (!LoadProject(project, options.project, &error))
        return Fail(error, options);
    timer.mark(RunTimer::LoadEnd);
    if (options.list) {
        ListUnits(project);
        return 0;
    }
    // A check, a lint, a diff and an export without --save leave the project
    // file as it was; any other run on a file writes it back, and finds out
    // that it can't before the engineer edits anything.
    const bool saves = !options.check && !options.noSave && !options.lint && !options.diff &&
                       !options.project.isEmpty() && (options.exportDir.isEmpty() || options.save);
    if (saves && !CanSaveProject(options.project, &error))
        return Fail(error + "; the project could not be saved, so the form was not opened",
                    options);

    HostObject *unit = nullptr, *line = nullptr;
    if (!PickUnit(project, options.unit, unit, line, error))
        return Fail(error, options);
    const QString target =
        options.exportDir.isEmpty() ? QString() : ExportTarget(unit, options.exportDir, &error);
    if (!options.exportDir.isEmpty() && target.isEmpty())
        return Fail(error, options);

    PluginLoader plugin;
    if (!LoadPlugin(options, plugin, error))
        return Fail(error, options);

    FormWatcher watcher(options.headless, options.screenshot, options.timing ? &timer : nullptr);
    watcher.setPicture(options.steps, options.screenshotOf);
    watcher.setCheck(options.check);
    BatchExport batch(target);
    if (!target.isEmpty())
        batch.start();
    else if (options.headless || !options.screenshot.isEmpty() || options.timing ||
             !options.steps.isEmpty())
        watcher.start();
    if (options.timing)
        timer.watch();
    const QByteArray stored = unit->get("$DATARUN").toByteArray();
    timer.mark(RunTimer::FormGet);
    plugin.formGet(HostProject::table(), line, unit, nullptr);
    timer.mark(RunTimer::FormReturned);
    watcher.stop();
    batch.stop();
    if (!target.isEmpty() && !batch.error().isEmpty())
        return Fail(batch.error(), options);
    if (!target.isEmpty())
        fprintf(stderr, "iccp-host: exported %s\n", qPrintable(batch.written().join(", ")));

    timer.mark(RunTimer::SaveStart);
    if (saves && !SaveProject(project, options.project, &error))
        return Fail(error, options);
    timer.mark(RunTimer::SaveEnd);
    int misfits = 0;
    const int status = Conclude(options, unit, watcher, stored, misfits);
    if (status >= 0)
        return status;
    fflush(stdout);
    if (options.timing) {
        timer.mark(RunTimer::TeardownStart);
        project.clear();
        timer.mark(RunTimer::TeardownEnd);
        timer.report();
    }
    return misfits ? 1 : 0;
}
