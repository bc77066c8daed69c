// The main of a benchmark program with widgets: offscreen unless a platform
// is chosen, one application, then the run.
#pragma once

#include "BenchRun.h"

#include <QApplication>

inline int RunWidgetBenchmarks(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    return RunBenchmarks(argc, argv);
}
