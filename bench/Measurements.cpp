#include <cstdio>
#include <cstdlib>
#include <memory>

#include "CountingSymbol.h"
#include "Stages.h"
#include "layout/ReferenceSplitText.h"
#include "layout/TextFit.h"

/// Counts how often TextFit::SplitText and the plain loops measure a text, over all cells of an
/// index (see Stages). Prints one line per column: name, number of texts, both counts. Fails if the
/// two differ in a result.
namespace {

struct Questions {
    std::size_t quick = 0;
    std::size_t plain = 0;
};

class Comparison {
public:
    explicit Comparison(bench::Stages& stages)
        : host_(stages.Host()), display_(stages.Display()), fit_(host_, display_) {}

    Questions Compare(const bench::CellTexts& cells) {
        const auto symbol = std::make_shared<bench::CountingSymbol>(cells.symbol);
        Questions questions;
        for (const auto& text : cells.texts) {
            std::string forQuick = text;
            const auto quick = fit_.SplitText(forQuick, cells.width, symbol);
            questions.quick += symbol->TakeQuestions();
            std::string forPlain = text;
            const auto plain = reference::SplitText(host_, display_, forPlain, cells.width, symbol);
            questions.plain += symbol->TakeQuestions();
            if (quick != plain) Fail(text, quick, plain);
        }
        return questions;
    }

private:
    [[noreturn]] static void Fail(const std::string& text, const std::string& quick,
                                  const std::string& plain) {
        std::fprintf(stderr, "bench_measurements: \"%s\" was fitted as\n%s\nand plainly as\n%s\n",
                     text.c_str(), quick.c_str(), plain.c_str());
        std::exit(1);
    }

    host::IHost& host_;
    host::Ref<host::IHostDisplay> display_;
    gazetteer::TextFit fit_;
};

}  // namespace

int main() {
    bench::Stages stages;
    for (const auto& cells : stages.Cells()) {
        const auto questions = Comparison(stages).Compare(cells);
        std::printf("%s\t%zu\t%zu\t%zu\n", cells.column.c_str(), cells.texts.size(),
                    questions.quick, questions.plain);
    }
}
