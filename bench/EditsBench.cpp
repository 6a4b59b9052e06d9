#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <memory>

#include "ListingTable.h"
#include "page/GazetteerPropertyPage.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/TestDesk.h"

/// Times edits on the property page, for a document with stored listings: GAZETTEER_BENCH_RECORDS
/// records (default 100000) before combining. The first edit also removes the listings stored in
/// the working copy.
namespace {

using support::TestDesk;

std::size_t RecordCount() {
    const char* text = std::getenv("GAZETTEER_BENCH_RECORDS");
    return text ? std::strtoul(text, nullptr, 10) : 100'000;
}

class OneObject final : public host::IHostObjectSet {
public:
    explicit OneObject(host::Ref<host::IHostObject> object) : object_(std::move(object)) {}
    void Reset() override { given_ = false; }
    host::Ref<host::IHostObject> Next() override {
        return std::exchange(given_, true) ? nullptr : object_;
    }

private:
    host::Ref<host::IHostObject> object_;
    bool given_ = false;
};

// An element with stored results and property pages on it.
class Element {
public:
    Element() {
        bench::WriteListingTable(folder_.File("listings.dbf"), RecordCount());
        element_ = desk_.NewGazetteer(folder_.File("listings.dbf"), 7.5, 9.6);
        gazetteer::CVNGazetteerManager(desk_.HostRef()).SetIndexElement(element_);
    }
    std::unique_ptr<gazetteer::GazetteerPropertyPage> OpenPage() {
        auto page = std::make_unique<gazetteer::GazetteerPropertyPage>(desk_.HostRef());
        page->SetObjects(std::make_shared<OneObject>(element_));
        page->Activate();
        page->Show();
        return page;
    }

private:
    support::TemporaryFolder folder_;
    TestDesk desk_;
    TestDesk::Group element_;
};

Element& TheElement() {
    static auto* element = new Element;
    return *element;
}

template <class T>
T& Control(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* control = window->findChild<T*>(name)) return *control;
    std::abort();
}

void BM_1_Open(benchmark::State& state) {
    auto& element = TheElement();
    for (auto _ : state) {
        auto page = element.OpenPage();
        state.PauseTiming();
        page.reset();
        state.ResumeTiming();
    }
}

void BM_2_FirstKey(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto page = TheElement().OpenPage();
        auto& box = Control<QLineEdit>("txtColumnTitle");
        state.ResumeTiming();
        QTest::keyClick(&box, Qt::Key_A);
        state.PauseTiming();
        page.reset();
        state.ResumeTiming();
    }
}

void BM_3_FurtherKey(benchmark::State& state, const char* control) {
    const auto page = TheElement().OpenPage();
    auto& box = Control<QLineEdit>(control);
    QTest::keyClick(&box, Qt::Key_1);
    for (auto _ : state) {
        QTest::keyClick(&box, Qt::Key_1);
        QTest::keyClick(&box, Qt::Key_Backspace);
    }
    state.SetItemsProcessed(2 * state.iterations());
}

void BM_4_OtherColumn(benchmark::State& state) {
    const auto page = TheElement().OpenPage();
    auto& list = Control<QListWidget>("lstListingColumns");
    for (auto _ : state) list.setCurrentRow(1 - list.currentRow());
}

BENCHMARK(BM_1_Open)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_2_FirstKey)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK_CAPTURE(BM_3_FurtherKey, txtColumnTitle, "txtColumnTitle")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_3_FurtherKey, txtColumnWidth, "txtColumnWidth")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_3_FurtherKey, txtGroupSpacing, "txtGroupSpacing")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_3_FurtherKey, txtCombineDelimeter, "txtCombineDelimeter")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_4_OtherColumn)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int count, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, arguments);
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
