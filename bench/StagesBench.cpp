#include <benchmark/benchmark.h>
#include <cstdlib>
#include <string>

#include "ListingTable.h"
#include "desk/drawing/ElementPainter.h"
#include "desk/drawing/PdfWriter.h"
#include "layout/PageDrawing.h"
#include "layout/PageGroups.h"
#include "listings/Combine.h"
#include "listings/IndexTable.h"
#include "model/Paths.h"
#include "support/TestDesk.h"

/// Time per stage of a whole index: read, compose, sort, combine, number pages, draw, write. Each
/// stage runs on what the stages before it made. GAZETTEER_BENCH_RECORDS sets the size of the table
/// (default 100000).
namespace {

using namespace gazetteer;
using support::TestDesk;

std::size_t RecordCount() {
    const char* text = std::getenv("GAZETTEER_BENCH_RECORDS");
    return text ? std::strtoul(text, nullptr, 10) : 100'000;
}

// Everything up to a stage, made when that stage is first asked for.
class Stages {
public:
    Stages() {
        bench::WriteListingTable(folder_.File("listings.dbf"), RecordCount());
        element_ = desk_.NewGazetteer(folder_.File("listings.dbf"), 7.5, 9.6);
        SetUpColumns();
        ReadSettings(*desk_.Properties(element_), desk_.Host().Locale(), settings_);
        siblings_ = SiblingObjects::Create(desk_.Host());
        source_.databaseTable = OpenTableFile(desk_.Host(), settings_.indexDatabaseFile);
        transparent_ = desk_.Host().NewFillSymbol();
    }

    std::int64_t Read() {
        std::int64_t records = 0;
        const auto rows = source_.databaseTable->Search(desk_.Host().NewQueryFilter(), true);
        for (auto row = rows->NextRow(); row; row = rows->NextRow()) {
            benchmark::DoNotOptimize(row->Value(0));
            ++records;
        }
        return records;
    }
    host::Ref<host::IHostTable> Compose() {
        auto table = MakeIndexTempTable(desk_.Host(), settings_);
        ComposeIndexTable(desk_.Host(), settings_, siblings_, source_, *table);
        return table;
    }
    host::Ref<host::IHostCursor> Sort() {
        return OrderIndexTable(desk_.Host(), settings_, Composed());
    }
    host::Ref<host::IHostPropertySet> Combine() {
        const auto rows = Sort();
        return CombineRows(*rows);
    }
    host::Ref<host::IHostPropertySet> CombineRows(host::IHostCursor& rows) {
        RunReport report;
        return PopulateRowValuesPropertySet(desk_.Host(), settings_, rows, *Composed(), report);
    }
    void NumberPages(WorkingResults& results) {
        PopulatePageGroups(desk_.Host(), settings_, *element_, transparent_, results);
    }
    void Draw(std::int32_t page) {
        DrawPage(desk_.Host(), settings_, Results(), transparent_, element_, page);
    }

    const host::Ref<host::IHostTable>& Composed() {
        if (!composed_) composed_ = Compose();
        return composed_;
    }
    WorkingResults& Results() {
        if (!results_.listings) {
            results_.listings = Combine();
            NumberPages(results_);
        }
        return results_;
    }
    void Paint(cairo_t* canvas) {
        desk::ElementPainter(*desk_.TextEngine()).Paint(canvas, element_);
    }
    std::string File(const char* name) { return folder_.File(name); }

private:
    void SetUpColumns() {
        desk_.Properties(element_)->SetItem("CombineWithNewLine", false);
        desk_.Properties(element_)->SetItem("CombineFirstAndLast", false);
        desk_.Column(element_, "Listing")->SetItem("Expression", std::string("[Listing]$$DOTS"));
        for (const auto& [name, width] : {std::pair{"Listing", 1.5}, {"Page", 0.9}}) {
            const auto column = desk_.Column(element_, name);
            column->SetItem("ColumnWidth", width);
            column->SetItem("ColumnFontSymbol",
                            TestDesk::Object(desk_.TextSymbol("Liberation Sans", 8)));
            column->SetItem("MarginTop", 0.005);
            column->SetItem("MarginBottom", 0.005);
        }
    }

    TestDesk desk_;
    support::TemporaryFolder folder_;
    host::Ref<host::IHostGroupElement> element_;
    Settings settings_;
    SiblingObjects siblings_;
    ListingSource source_;
    host::Ref<host::IHostFillSymbol> transparent_;
    host::Ref<host::IHostTable> composed_;
    WorkingResults results_;
};

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
        benchmark::DoNotOptimize(stages.CombineRows(*rows));
    }
}

void BM_5_NumberPages(benchmark::State& state) {
    auto& stages = TheStages();
    WorkingResults results;
    results.listings = stages.Combine();
    for (auto _ : state) stages.NumberPages(results);
    state.counters["pages"] = results.pageCount;
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
        desk::PdfWriter writer(stages.File("out.pdf"), "bench");
        for (std::int32_t page = 1; page <= pages; ++page) {
            state.PauseTiming();
            stages.Draw(page);
            state.ResumeTiming();
            writer.BeginPage(8.5, 11);
            stages.Paint(writer.Canvas());
            writer.EndPage("page");
        }
        writer.Finish();
    }
}

BENCHMARK(BM_1_Read)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_2_Compose)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_3_Sort)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_4_Combine)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_5_NumberPages)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_6_Draw)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_7_Write)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
