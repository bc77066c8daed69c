// The end of every benchmark program's main: Google Benchmark's own flags,
// then the run.
#pragma once

#include <benchmark/benchmark.h>

inline int RunBenchmarks(int& argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
