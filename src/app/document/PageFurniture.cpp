#include "app/document/PageFurniture.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "model/DefaultSymbols.h"
#include "model/KeyNames.h"
#include "model/Settings.h"
#include "support/Conversions.h"
#include "support/Text.h"

namespace app {
namespace {

namespace keys = gazetteer::keys;

constexpr char kHeadTag[] = "RUNNINGHEAD";
constexpr char kNumberTag[] = "SHEETNUMBER";
constexpr char kDash[] = " \u2013 ";
constexpr char kEllipsis[] = "\u2026";

constexpr double kPoints = 9;          // Font size in points.
constexpr double kHeadAbove = 0.13;    // Inches from the frame to the middle of the head.
constexpr double kNumberBelow = 0.17;  // Inches from the frame to the middle of the number.

host::Ref<host::IHostTextElement> MakeLabel(host::IHost& host, const char* tag, double x, double y,
                                            bool bold) {
    auto symbol = gazetteer::MakeTextSymbol(host, kPoints, bold);
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

// Returns a number of leading characters that are certainly too wide, or all. Shortened starts
// there because it removes one character at a time, which is slow for very long texts.
std::size_t TooWide(host::IHost& host, host::IHostTextSymbol& symbol, const std::string& text,
                    const std::vector<std::size_t>& characters, double width) {
    constexpr double kCertainly = 2;  // Times the width; ligatures can make a longer text narrower.
    std::size_t bytes = 0;
    std::size_t count = 0;
    for (std::size_t tried = 64; tried < characters.size(); tried *= 2) {
        for (; count < tried; ++count) bytes += characters[count];
        if (WidthOf(host, symbol, text.substr(0, bytes)) > kCertainly * width) return count;
    }
    return characters.size();
}

// Cuts a text to the width (inches) and adds an ellipsis.
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

bool HasTag(const host::Ref<host::IHostElement>& element, std::string_view tag) {
    const auto named = host::As<host::IHostElementName>(element);
    return named && named->Name() == tag;
}

// Returns "First – Last", or just one of them, cut to the width (inches).
std::string HeadText(host::IHost& host, host::IHostTextSymbol& symbol, const std::string& first,
                     const std::string& last, double width) {
    if (first.empty() || last.empty() || first == last)
        return Shortened(host, symbol, first.empty() ? last : first, width);
    const double half = (width - WidthOf(host, symbol, kDash)) / 2;
    return Shortened(host, symbol, first, half) + kDash + Shortened(host, symbol, last, half);
}

}  // namespace

std::int64_t SheetNumber(OpenDocument& open, std::int32_t page) {
    const auto first = open.TheDesk().CurrentDocument().firstSheet;
    if (first > 0) return std::int64_t{first} + page - 1;
    auto& host = open.Host();
    const auto context = host.NewLayoutContext();
    const auto key = context->CurrentTemplateKey();
    if (std::holds_alternative<host::Empty>(key)) return page;
    const auto book = host.NewMapBook();
    const std::string section = book->TemplateSection(gazetteer::ToText(key, host.Locale()));
    const auto start = gazetteer::ToLong(book->SectionStartPage(section), host.Locale());
    return std::int64_t{start} + page - 1;
}

void AddPageFurniture(OpenDocument& open) {
    const auto frame = open.Gazetteer()->Geometry()->Bounds();
    const double middle = frame->XMin() + frame->Width() / 2;
    const double head = frame->YMin() + frame->Height() + kHeadAbove;
    auto& elements = open.TheDesk().CurrentDocument().elements;
    elements.push_back(MakeLabel(open.Host(), kHeadTag, middle, head, true));
    elements.push_back(
        MakeLabel(open.Host(), kNumberTag, middle, frame->YMin() - kNumberBelow, false));
}

void UseColumnFont(OpenDocument& open) {
    const auto properties = open.Properties();
    const auto names =
        gazetteer::NamesOf(*gazetteer::SetUnder(*properties, keys::kColumnDisplayOrder), 1);
    if (names.empty()) return;
    const auto columns = gazetteer::SetUnder(*properties, keys::kColumnsProperties);
    const auto column = gazetteer::SetUnder(*columns, names.front());
    const auto symbol =
        gazetteer::ToObject<host::IHostTextSymbol>(column->Item(keys::kColumnFontSymbol));
    for (const auto& element : open.TheDesk().CurrentDocument().elements) {
        const auto label = host::As<host::IHostTextElement>(element);
        if (symbol && label && (HasTag(element, kHeadTag) || HasTag(element, kNumberTag)))
            label->Symbol()->Font()->SetName(symbol->Font()->Name());
    }
}

void LabelSheet(OpenDocument& open, std::int32_t page) {
    const auto& elements = open.TheDesk().CurrentDocument().elements;
    // Without labels the map book is not needed and may be missing.
    if (std::ranges::none_of(elements, [](const auto& element) {
            return HasTag(element, kHeadTag) || HasTag(element, kNumberTag);
        }))
        return;
    const auto first = gazetteer::WithoutOuterBlanks(open.Manager().FirstListing(page));
    const auto last = gazetteer::WithoutOuterBlanks(open.Manager().LastListing(page));
    const auto number = std::to_string(SheetNumber(open, page));
    const double width = open.Gazetteer()->Geometry()->Bounds()->Width();
    for (const auto& element : elements) {
        const auto label = host::As<host::IHostTextElement>(element);
        if (label && HasTag(element, kNumberTag)) label->SetText(number);
        if (label && HasTag(element, kHeadTag))
            label->SetText(HeadText(open.Host(), *label->Symbol(), first, last, width));
    }
}

}  // namespace app
