#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "app/commands/CommandSession.h"

/// Times loading the stored results of the document in GAZETTEER_BENCH_DOCUMENT and drawing a page.
namespace {

std::unique_ptr<app::CommandSession> OpenDocument(const char* path) {
    auto session = std::make_unique<app::CommandSession>(app::CommonOptions{.locale = "en_US"});
    session->Open(path);
    session->BindDrawable();
    return session;
}

void BM_1_Reload(benchmark::State& state, const char* path) {
    for (auto _ : state) {
        auto session = OpenDocument(path);
        state.PauseTiming();
        session.reset();
        state.ResumeTiming();
    }
}

// Includes finding the fonts.
void BM_2_FirstPage(benchmark::State& state, const char* path) {
    const auto session = OpenDocument(path);
    for (auto _ : state) session->Document().Manager().SetIndexToPageNumber(1);
}

// The pages are far apart, so that their texts differ.
void BM_3_OtherPages(benchmark::State& state, const char* path) {
    constexpr int kStride = 7919;
    const auto session = OpenDocument(path);
    const int pages = session->Document().PageCount();
    int page = 0;
    for (auto _ : state) {
        session->Document().Manager().SetIndexToPageNumber(page + 1);
        page = (page + kStride) % pages;
    }
    state.counters["pages"] = pages;
}

// With typesetting its column groups are balanced, for which it is placed some twenty times.
void BM_4_LastPage(benchmark::State& state, const char* path) {
    const auto session = OpenDocument(path);
    const int pages = session->Document().PageCount();
    for (auto _ : state) session->Document().Manager().SetIndexToPageNumber(pages);
}

}  // namespace

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    const char* path = std::getenv("GAZETTEER_BENCH_DOCUMENT");
    if (!path) {
        std::fputs("bench_page: GAZETTEER_BENCH_DOCUMENT names no document.\n", stderr);
        return 2;
    }
    const auto add = [&](const char* name, auto* function) {
        return benchmark::RegisterBenchmark(name, function, path)->Unit(benchmark::kMillisecond);
    };
    add("BM_1_Reload", BM_1_Reload)->Iterations(3);
    add("BM_2_FirstPage", BM_2_FirstPage)->Iterations(1);
    add("BM_3_OtherPages", BM_3_OtherPages);
    add("BM_4_LastPage", BM_4_LastPage);
    benchmark::RunSpecifiedBenchmarks();
}
