#include <benchmark/benchmark.h>

#include "Stages.h"
#include "layout/TextFit.h"

/// Times each stage of a whole index, see Stages.
namespace {

using bench::Stages;

Stages& TheStages() {
    static Stages stages;
    return stages;
}

void BM_1_Read(benchmark::State& state) {
    auto& stages = TheStages();
    for (auto _ : state) state.counters["records"] = static_cast<double>(stages.Read());
}

void BM_2_Compose(benchmark::State& state) {
    auto& stages = TheStages();
    for (auto _ : state) benchmark::DoNotOptimize(stages.Compose());
}

void BM_3_Sort(benchmark::State& state) {
    auto& stages = TheStages();
    stages.Composed();
    for (auto _ : state) benchmark::DoNotOptimize(stages.Sort());
}

void BM_4_Combine(benchmark::State& state) {
    auto& stages = TheStages();
    for (auto _ : state) {
        state.PauseTiming();
        const auto rows = stages.Sort();
        state.ResumeTiming();
        benchmark::DoNotOptimize(stages.Combine(*rows));
    }
}

void BM_5_NumberPages(benchmark::State& state) {
    auto& stages = TheStages();
    gazetteer::WorkingResults results;
    results.listings = stages.Combine(*stages.Sort());
    for (auto _ : state) stages.NumberPages(results);
    state.counters["pages"] = results.pageCount;
}

// The part of numbering and drawing that fits texts to columns. Each pass has a new fitter without
// cached results.
void BM_5_SplitTexts(benchmark::State& state) {
    auto& stages = TheStages();
    const auto cells = stages.Cells();
    for (auto _ : state) {
        gazetteer::TextFit fit(stages.Host(), stages.Display());
        for (const auto& column : cells)
            for (std::string text : column.texts)
                benchmark::DoNotOptimize(fit.SplitText(text, column.width, column.symbol));
    }
}

void BM_6_Draw(benchmark::State& state) {
    auto& stages = TheStages();
    const std::int32_t pages = stages.Results().pageCount;
    for (auto _ : state)
        for (std::int32_t page = 1; page <= pages; ++page) stages.Draw(page);
}

void BM_7_Write(benchmark::State& state) {
    auto& stages = TheStages();
    const std::int32_t pages = stages.Results().pageCount;
    for (auto _ : state) {
        const auto writer = desk::OpenPageWriter(stages.File("out.pdf"));
        for (std::int32_t page = 1; page <= pages; ++page) {
            state.PauseTiming();
            stages.Draw(page);
            state.ResumeTiming();
            stages.Write(*writer);
        }
        writer->Finish();
    }
}

BENCHMARK(BM_1_Read)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_2_Compose)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_3_Sort)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_4_Combine)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_5_NumberPages)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_5_SplitTexts)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_6_Draw)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_7_Write)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
