#include "app/ModelTools.h"

#include "app/Options.h"
#include "model/ModelDiff.h"
#include "model/ModelFile.h"
#include "model/ModelLint.h"

#include <QElapsedTimer>
#include <cstdio>

namespace {

int Unreadable(const QString& error) {
    fprintf(stderr, "iccp-host: %s\n", qPrintable(error));
    return 2;
}

void Print(const QStringList& lines) {
    for (const QString& line : lines)
        fprintf(stdout, "%s\n", line.toUtf8().constData());
    fflush(stdout);
}

// Seconds since the timer started, and a restart.
double Lap(QElapsedTimer& timer) {
    return double(timer.restart()) / 1000.0;
}

int Diff(const ModelFile& before, const ModelFile& after, const HostOptions& options,
         QElapsedTimer& timer, double read) {
    const QStringList lines = DiffModels(before, after);
    const double compare = Lap(timer);
    Print(lines);
    if (options.timing)
        fprintf(stderr, "iccp-host: timing diff read %.3f s, compare %.3f s\n", read, compare);
    return lines.isEmpty() ? 0 : 1;
}

} // namespace

int RunModelTool(const HostOptions& options, const QByteArray& stored, const QByteArray& written) {
    QElapsedTimer timer;
    timer.start();
    QString error;
    ModelFile model;
    if (!model.ReadText(written, error))
        return Unreadable("the model the form wrote: " + error);
    if (options.lint) {
        const double read = Lap(timer);
        const LintReport report = LintModel(model, options.pdu);
        const double check = Lap(timer);
        Print(report.lines);
        fprintf(stderr, "iccp-host: lint: %d error(s), %d warning(s)\n", report.errors,
                int(report.lines.size()) - report.errors);
        if (options.timing)
            fprintf(stderr, "iccp-host: timing lint read %.3f s, check %.3f s\n", read, check);
        return report.errors ? 1 : 0;
    }
    ModelFile other;
    if (options.diffFiles.isEmpty()) {
        if (stored.isEmpty())
            return Unreadable("the unit has no stored $DATARUN to compare with");
        if (!other.ReadText(stored, error))
            return Unreadable("the unit's stored $DATARUN: " + error);
    } else if (!other.ReadFile(options.diffFiles[0], error)) {
        return Unreadable(error);
    }
    return Diff(other, model, options, timer, Lap(timer));
}

int DiffModelFiles(const HostOptions& options) {
    QElapsedTimer timer;
    timer.start();
    QString error;
    ModelFile before, after;
    if (!before.ReadFile(options.diffFiles.value(0), error) ||
        !after.ReadFile(options.diffFiles.value(1), error))
        return Unreadable(error);
    return Diff(before, after, options, timer, Lap(timer));
}
