// The close road's cut of a rendered model into lines, at the size of 5,000
// to 200,000 variables (a line of about 200 characters each).
#include "support/StrUtils.h"

#include <benchmark/benchmark.h>

namespace {

QString Rendered(int lines) {
    const QString line =
        "    <DcDA  name = \"S17_4711\" type = \"Data_Real\" desc = \"Сигнал 4711\" "
        "svalue = \"0\" refDSRT = \"\" ByteCount=\"0\"  unused=\"0\" refDS = "
        "\"ICC_1/DS_3;\"  flagAbility = \"0\" /> \r\n";
    QString text;
    text.reserve(line.size() * lines);
    for (int i = 0; i < lines; ++i)
        text += line;
    return text;
}

void BM_SplitLines(benchmark::State& state) {
    const QString text = Rendered(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(SplitLines(text));
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * text.size() * 2);
}

} // namespace

BENCHMARK(BM_SplitLines)->RangeMultiplier(4)->Range(5000, 200000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
