// The model lint and the model diff on a large "$DATARUN" text, such as
// `iccp-host PROJECT.json --headless --print-datarun` prints for a project
// of scripts/gen-scale-project. The text is named by ICCP_BENCH_DATARUN.
#include "BenchRun.h"
#include "model/ModelDiff.h"
#include "model/ModelFile.h"
#include "model/ModelLint.h"

#include <QFile>

namespace {

QByteArray Datarun() {
    QFile file(qEnvironmentVariable("ICCP_BENCH_DATARUN"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Reads the text into each model; false, with the run skipped, when it can't.
bool ReadAll(benchmark::State& state, std::initializer_list<ModelFile*> models) {
    static const QByteArray text = Datarun();
    QString error = "set ICCP_BENCH_DATARUN to a $DATARUN text";
    for (ModelFile* model : models)
        if (text.isEmpty() || !model->ReadText(text, error)) {
            state.SkipWithError(qPrintable(error));
            return false;
        }
    return true;
}

void BM_ReadText(benchmark::State& state) {
    for (auto _ : state) {
        auto* model = new ModelFile();
        const bool read = ReadAll(state, {model});
        state.PauseTiming(); // the teardown is not the reader's
        delete model;
        state.ResumeTiming();
        if (!read)
            break;
    }
}

void BM_Lint(benchmark::State& state) {
    ModelFile model;
    if (!ReadAll(state, {&model}))
        return;
    for (auto _ : state)
        benchmark::DoNotOptimize(LintModel(model));
}

void BM_Diff(benchmark::State& state) {
    ModelFile before, after;
    if (!ReadAll(state, {&before, &after}))
        return;
    for (auto _ : state)
        benchmark::DoNotOptimize(DiffModels(before, after));
}

} // namespace

BENCHMARK(BM_ReadText)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_Lint)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_Diff)->Unit(benchmark::kMillisecond)->Iterations(3);

int main(int argc, char** argv) {
    return RunBenchmarks(argc, argv);
}
