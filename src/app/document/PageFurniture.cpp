#include "app/document/PageFurniture.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "model/DefaultSymbols.h"

namespace app {
namespace {

constexpr char kHeadTag[] = "RUNNINGHEAD";
constexpr char kNumberTag[] = "SHEETNUMBER";
constexpr char kDash[] = " \u2013 ";
constexpr char kEllipsis[] = "\u2026";

constexpr double kHeadAbove = 0.13;    // Inches from the frame to the middle of the head.
constexpr double kNumberBelow = 0.17;  // And to the middle of the number.

host::Ref<host::IHostTextElement> MakeLabel(host::IHost& host, const char* tag, double x, double y,
                                            double points, bool bold) {
    auto symbol = gazetteer::MakeTextSymbol(host, points, bold);
    symbol->Font()->SetName("Liberation Sans");
    symbol->SetHorizontalPlacement(1);
    auto label = host.NewTextElement();
    label->SetSymbol(symbol);
    auto point = host.NewPoint();
    point->SetX(x);
    point->SetY(y);
    label->SetGeometry(point);
    label->SetScaleWithPage(false);
    host::As<host::IHostElementName>(label)->SetName(tag);
    return label;
}

double WidthOf(host::IHost& host, host::IHostTextSymbol& symbol, const std::string& text) {
    const auto display = host.NewApplication()->Document()->ActiveView()->Display();
    return symbol.MeasureText(display->DeviceContext(), display->Transformation(), text).xSize /
           host::kPointsPerInch;
}

// A beginning of the text that is certainly too wide, or the whole text: so that of a very long
// text only a beginning is shortened character by character.
std::size_t TooWide(host::IHost& host, host::IHostTextSymbol& symbol, const std::string& text,
                    const std::vector<std::size_t>& characters, double width) {
    constexpr double kCertainly = 2;  // Letters that join may make a longer text a little narrower.
    std::size_t bytes = 0;
    std::size_t count = 0;
    for (std::size_t tried = 64; tried < characters.size(); tried *= 2) {
        for (; count < tried; ++count) bytes += characters[count];
        if (WidthOf(host, symbol, text.substr(0, bytes)) > kCertainly * width) return count;
    }
    return characters.size();
}

// As many of the text's characters as the width takes, with an ellipsis for the rest.
std::string Shortened(host::IHost& host, host::IHostTextSymbol& symbol, std::string text,
                      double width) {
    if (WidthOf(host, symbol, text) <= width) return text;
    auto characters = host.Locale().Characters(text);
    characters.resize(TooWide(host, symbol, text, characters, width));
    text.resize(std::accumulate(characters.begin(), characters.end(), std::size_t{0}));
    while (!characters.empty()) {
        text.resize(text.size() - characters.back());
        characters.pop_back();
        if (WidthOf(host, symbol, text + kEllipsis) <= width) break;
    }
    return text + kEllipsis;
}

}  // namespace

void AddPageFurniture(host::IHost& host, desk::Document& document, const FrameOption& frame) {
    const double middle = frame.left + frame.width / 2;
    document.elements.push_back(
        MakeLabel(host, kHeadTag, middle, frame.bottom + frame.height + kHeadAbove, 9, true));
    document.elements.push_back(
        MakeLabel(host, kNumberTag, middle, frame.bottom - kNumberBelow, 9, false));
}

bool HasPageFurniture(const desk::Document& document) {
    return std::ranges::any_of(document.elements, [](const auto& element) {
        const auto named = host::As<host::IHostElementName>(element);
        return named && (named->Name() == kHeadTag || named->Name() == kNumberTag);
    });
}

void FillPageFurniture(host::IHost& host, desk::Document& document, const std::string& first,
                       const std::string& last, const std::string& number, double width) {
    for (const auto& element : document.elements) {
        const auto label = host::As<host::IHostTextElement>(element);
        const auto named = host::As<host::IHostElementName>(element);
        if (!label || !named) continue;
        if (named->Name() == kNumberTag) label->SetText(number);
        if (named->Name() != kHeadTag) continue;
        auto& symbol = *label->Symbol();
        const double half = (width - WidthOf(host, symbol, kDash)) / 2;
        const bool both = !first.empty() && !last.empty() && first != last;
        label->SetText(both ? Shortened(host, symbol, first, half) + kDash +
                                  Shortened(host, symbol, last, half)
                            : Shortened(host, symbol, first.empty() ? last : first, width));
    }
}

}  // namespace app
