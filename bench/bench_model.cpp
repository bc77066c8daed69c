// Costs of a large model's XML: writing it, reading it back through the whole
// reader road, and a bare TinyXML parse of the same text, at 5,000 to 20,000
// variables. Before the timed runs, while this process is still small, one
// fresh process per size reports the time of each step once and its peak
// memory (a child's peak counts its parent's size at the fork).
#include "BenchRun.h"
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "model/DcDataSet.h"
#include "model/DcTransSet.h"
#include "tests/xml/ModelRoad.h"

namespace {

const int IccCount = 4;
const int DataSetSize = 100;

// The template's model grown to `variables` variables spread over four ICCs,
// every second one a structure, every variable in one data set of 100
// members, one transfer set per data set.
void BuildLargeModel(int variables, myNode*& tree) {
    ClearModel(tree);
    ReadModelText(ReadWholeFile(":/Templ"), &tree);
    DcDAType* real = GetDcDAType("Data_Real");
    DcDOType* realQ = qobject_cast<DcDOType*>(FindTemplate("Data_RealQ"));
    for (int k = 0; k < IccCount; ++k) {
        const std::string iccName = "ICC_" + std::to_string(k + 1);
        const int at = pVCC->ICCs.IndexOf(iccName);
        DcLD* icc = at >= 0 ? static_cast<DcLD*>(pVCC->ICCs.Objects(at)) : nullptr;
        if (!icc) {
            icc = new DcLD(pVCC);
            icc->name = iccName;
            pVCC->ICCs.AddObject(iccName, icc, true);
        }
        DcDataSet* dataSet = nullptr;
        for (int i = 0; i < variables / IccCount; ++i) {
            DcICCPBase* var;
            if (i % 2 == 0)
                var = new DcDA("Real_" + std::to_string(i), real, icc);
            else
                var = new DcDO("RealQ_" + std::to_string(i), realQ, icc);
            icc->Vars.AddObject(var->name, var, true);
            if (i % DataSetSize == 0) {
                const std::string suffix = std::to_string(i / DataSetSize + 1);
                dataSet = new DcDataSet("DS_" + suffix, icc);
                icc->DataSets.AddObject(dataSet->name, dataSet, true);
                DcTransSet* transSet = new DcTransSet("TS_" + suffix, false, icc);
                icc->TransSets.AddObject(transSet->name, transSet, true);
            }
            dataSet->AddObRef(var);
        }
    }
}

QString WriteModel() {
    return pVCC->ToXML(2) + pDcDTTP->ToXML(2);
}

// The framed text of a model of `variables` variables.
std::string LargeModelText(int variables) {
    myNode* tree = nullptr;
    BuildLargeModel(variables, tree);
    const std::string text = FrameModelText(WriteModel());
    ClearModel(tree);
    return text;
}

void BM_WriteModel(benchmark::State& state) {
    PrepareModelTables();
    myNode* tree = nullptr;
    BuildLargeModel(static_cast<int>(state.range(0)), tree);
    size_t bytes = 0;
    for (auto _ : state) {
        QString text = WriteModel();
        bytes = text.size();
        benchmark::DoNotOptimize(text);
    }
    ClearModel(tree);
    state.SetComplexityN(state.range(0));
    state.counters["chars"] = static_cast<double>(bytes);
}

void BM_ReadModel(benchmark::State& state) {
    PrepareModelTables();
    const std::string text = LargeModelText(static_cast<int>(state.range(0)));
    myNode* tree = nullptr;
    for (auto _ : state) {
        ReadModelText(text, &tree);
        state.PauseTiming();
        ClearModel(tree);
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}

void BM_BareParse(benchmark::State& state) {
    PrepareModelTables();
    const std::string text = LargeModelText(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        TiXmlDocument doc;
        doc.Parse(text.c_str(), nullptr, TIXML_ENCODING_UTF8);
        benchmark::DoNotOptimize(doc.Error());
    }
    state.SetComplexityN(state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}

// Three sizes, to see the growth with the number of variables.
void Sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(5000)->Arg(10000)->Arg(20000)->Unit(benchmark::kMillisecond);
    bench->Complexity(benchmark::oN);
}

BENCHMARK(BM_WriteModel)->Apply(Sizes);
BENCHMARK(BM_ReadModel)->Apply(Sizes);
BENCHMARK(BM_BareParse)->Apply(Sizes);

long PeakKb() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

// Processor time of this process in ms: the machine is shared, so wall time
// would count the other processes too.
double CpuMs() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return now.tv_sec * 1e3 + now.tv_nsec / 1e6;
}

// One pass at one size in a process of its own, so that the peak resident
// size belongs to that size alone: build, write, bare parse, read back.
int SinglePass(int variables) {
    PrepareModelTables();
    const long startKb = PeakKb();
    myNode* tree = nullptr;
    double t = CpuMs();
    BuildLargeModel(variables, tree);
    const double buildMs = CpuMs() - t;
    const long builtKb = PeakKb();
    t = CpuMs();
    const std::string text = FrameModelText(WriteModel());
    const double writeMs = CpuMs() - t;
    const long writtenKb = PeakKb();
    ClearModel(tree);
    t = CpuMs();
    {
        TiXmlDocument doc;
        doc.Parse(text.c_str(), nullptr, TIXML_ENCODING_UTF8);
    }
    const double parseMs = CpuMs() - t;
    t = CpuMs();
    ReadModelText(text, &tree);
    const double readMs = CpuMs() - t;
    const long readKb = PeakKb();
    ClearModel(tree);
    std::printf("%9d %9.1f %9zu %9.1f %9.1f %9.1f %7.2f %9ld %9ld %9ld %9ld\n", variables, buildMs,
                text.size() / 1024, writeMs, parseMs, readMs, readMs / parseMs, startKb / 1024,
                builtKb / 1024, writtenKb / 1024, readKb / 1024);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--single-pass") == 0)
        return SinglePass(std::atoi(argv[2]));
    std::printf("One pass per size, each in a fresh process (processor ms; text in KiB, resident "
                "peaks in MiB):\n%9s %9s %9s %9s %9s %9s %7s %9s %9s %9s %9s\n",
                "variables", "build", "text KiB", "ToXML", "parse", "read", "read/pa", "rss0",
                "peak bld", "peak wrt", "peak rd");
    std::fflush(stdout);
    for (const char* size : {"5000", "20000"}) {
        const pid_t child = fork();
        if (child == 0) {
            execl("/proc/self/exe", argv[0], "--single-pass", size, static_cast<char*>(nullptr));
            _exit(127);
        }
        int status = 0;
        waitpid(child, &status, 0);
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
            return 1;
    }
    std::printf("\n");
    std::fflush(stdout);
    return RunBenchmarks(argc, argv);
}
