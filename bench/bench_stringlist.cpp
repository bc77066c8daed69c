// Costs of the model's StringList at 10^3, 10^4 and 10^5 entries: one by
// one and in the batches of a load.
#include "support/UStringList.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <random>
#include <string>
#include <vector>

namespace {

// Variable-like names in a shuffled order, so that additions land all over Ref.
std::vector<std::string> Names(int n) {
    std::vector<std::string> names;
    names.reserve(n);
    for (int i = 0; i < n; ++i)
        names.push_back("ICC_" + std::to_string(i % 7) + "/Var_" + std::to_string(i));
    std::shuffle(names.begin(), names.end(), std::mt19937(42));
    return names;
}

void Fill(StringList& list, const std::vector<std::string>& names, bool bSort) {
    for (const std::string& name : names)
        list.AddObject(name, nullptr, bSort);
}

// Filling a list of n entries, keeping Ref sorted on each addition.
void BM_AddObjectSorted(benchmark::State& state) {
    const auto names = Names(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        StringList list;
        Fill(list, names, true);
        benchmark::DoNotOptimize(list.Ref);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// Filling without ordering Ref.
void BM_AddObjectUnsorted(benchmark::State& state) {
    const auto names = Names(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        StringList list;
        Fill(list, names, false);
        benchmark::DoNotOptimize(list.Ref);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// One lookup by name in a list of n entries.
void BM_IndexOf(benchmark::State& state) {
    const auto names = Names(static_cast<int>(state.range(0)));
    StringList list;
    Fill(list, names, true);
    size_t k = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(list.IndexOf(names[k]));
        k = (k + 7919) % names.size();
    }
}

// Filling a list of n entries by insertions at the front.
void BM_InsertObjectFront(benchmark::State& state) {
    const auto names = Names(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        StringList list;
        for (const std::string& name : names)
            list.InsertObject(0, name, nullptr);
        benchmark::DoNotOptimize(list.Ref);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// The same names as one batch, as a load adds them: at the end, or at the
// front.
std::vector<std::pair<std::string, void*>> Batch(int n) {
    std::vector<std::pair<std::string, void*>> batch;
    for (const std::string& name : Names(n))
        batch.emplace_back(name, nullptr);
    return batch;
}

void BM_AddObjects(benchmark::State& state) {
    const auto batch = Batch(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        StringList list;
        list.AddObjects(batch);
        benchmark::DoNotOptimize(list.Ref);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_InsertFront(benchmark::State& state) {
    const auto batch = Batch(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        StringList list;
        list.AddObject("Transfer_Set_Name", nullptr);
        list.InsertFront(batch);
        benchmark::DoNotOptimize(list.Ref);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// Emptying a list of n entries by deletions at random places.
void BM_Delete(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const auto names = Names(n);
    std::vector<int> places;
    std::mt19937 rng(7);
    for (int count = n; count > 0; --count)
        places.push_back(static_cast<int>(rng() % count));
    for (auto _ : state) {
        state.PauseTiming();
        StringList list;
        Fill(list, names, true);
        state.ResumeTiming();
        for (int place : places)
            list.Delete(place);
        benchmark::DoNotOptimize(list.Count);
    }
    state.SetItemsProcessed(state.iterations() * n);
}

} // namespace

BENCHMARK(BM_AddObjectSorted)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AddObjectUnsorted)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_IndexOf)->RangeMultiplier(10)->Range(1000, 100000);
BENCHMARK(BM_InsertObjectFront)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AddObjects)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_InsertFront)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Delete)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
