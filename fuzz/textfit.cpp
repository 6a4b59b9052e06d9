// Texts of any characters in several fonts and sizes. Quick measuring must equal full layouts, and
// quick fitting must equal the plain loops.

#include "layout/TextFit.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>

#include "Bytes.h"
#include "Checks.h"
#include "FuzzDesk.h"
#include "ReferenceSplitText.h"
#include "UnicodeText.h"
#include "desk/text/PlacedGlyphs.h"
#include "desk/text/TextEngine.h"
#include "model/DefaultSymbols.h"

namespace {

using fuzz::Require;

// Few, because each font and size takes memory permanently.
constexpr std::array<const char*, 4> kFamilies = {"Liberation Sans", "DejaVu Serif", "Noto Sans",
                                                  "Not Installed"};
constexpr std::array<double, 2> kSizes = {7.25, 20};
/// Inches; 16 bits select a width up to this.
constexpr double kWidestColumn = 3;
/// Bytes. The plain loops measure the growing text for each character and dot.
constexpr std::size_t kLongestText = 120;

struct Input {
    desk::FontSpec font;
    double width = 0;
    std::string text;
};

Input Take(fuzz::Bytes& bytes) {
    Input input;
    const std::uint8_t font = bytes.Byte();
    input.font.family = kFamilies[font % kFamilies.size()];
    input.font.points = kSizes[font / kFamilies.size() % kSizes.size()];
    input.font.bold = font >= 0xC0;
    input.width = kWidestColumn * bytes.Word() / 0xFFFF;
    input.text = fuzz::TakeUnicode(bytes, kLongestText);
    return input;
}

host::Ref<host::IHostTextSymbol> SymbolOf(const desk::FontSpec& font) {
    static std::map<std::string, host::Ref<host::IHostTextSymbol>> symbols;
    const std::string name = font.family + std::to_string(font.points) + (font.bold ? "b" : "");
    auto& symbol = symbols[name];
    if (symbol) return symbol;
    symbol = gazetteer::MakeTextSymbol(*fuzz::SharedDesk(), font.points, font.bold);
    symbol->Font()->SetName(font.family);
    return symbol;
}

void RequireSameBox(const desk::TextBox& quick, const desk::TextBox& plain) {
    Require(quick.left == plain.left && quick.top == plain.top && quick.right == plain.right &&
                quick.bottom == plain.bottom,
            "a text is set in another place than a layout sets it");
}

desk::TextBox BoxOf(desk::TextEngine& engine, const Input& input) {
    desk::PlacedGlyphs into;
    desk::PlacedText placed;
    placed.font = &engine.Find(input.font);
    placed.text = input.text;
    placed.placement = {1, 2, 0};
    return engine.Set(placed, into);
}

/// Measures twice, to show results that are not reproducible.
std::string Difference(desk::TextEngine& quick, desk::TextEngine& plain, const Input& input) {
    std::string widths;
    for (int i = 0; i < 2; ++i)
        for (auto* const engine : {&quick, &plain})
            widths += " " + std::to_string(engine->Measure(input.font, input.text).xSize);
    return "a text is not as wide as a layout tells:" + widths;
}

void CheckMeasuring(const Input& input) {
    static desk::TextEngine quick(desk::TextEngine::Measuring::Fast);
    static desk::TextEngine plain(desk::TextEngine::Measuring::FullLayout);
    const auto told = quick.Measure(input.font, input.text);
    const auto laidOut = plain.Measure(input.font, input.text);
    if (told.xSize != laidOut.xSize) fuzz::Find(Difference(quick, plain, input));
    Require(told.ySize == laidOut.ySize, "a text is not as high as a layout tells");
    RequireSameBox(BoxOf(quick, input), BoxOf(plain, input));
}

struct Outcome {
    std::optional<std::string> lines;
    std::string text;
};

template <class Fit>
Outcome OutcomeOf(std::string text, const Fit& fit) {
    Outcome outcome;
    fuzz::Attempt([&] { outcome.lines = fit(text); });
    if (outcome.lines) outcome.text = text;
    return outcome;
}

void CheckFitting(const Input& input) {
    auto& desk = *fuzz::SharedDesk();
    static const auto display = desk.NewApplication()->Document()->ActiveView()->Display();
    static gazetteer::TextFit fitter(desk, display);
    const auto symbol = SymbolOf(input.font);
    const auto shipped = OutcomeOf(
        input.text, [&](std::string& text) { return fitter.SplitText(text, input.width, symbol); });
    const auto plain = OutcomeOf(input.text, [&](std::string& text) {
        return reference::SplitText(desk, display, text, input.width, symbol);
    });
    Require(shipped.lines.has_value() == plain.lines.has_value(), "one way of fitting fails");
    Require(shipped.lines == plain.lines,
            "a text is fitted in another way than by the plain loops");
    Require(shipped.text == plain.text, "the text is left as another one than by the plain loops");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Bytes bytes(data, size);
    const Input input = Take(bytes);
    CheckMeasuring(input);
    CheckFitting(input);
    return 0;
}
