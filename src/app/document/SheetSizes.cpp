#include "app/document/SheetSizes.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include "app/document/Errors.h"
#include "app/document/KeyValues.h"
#include "app/document/Suggestion.h"
#include "characters/FoldCase.h"
#include "desk/documents/Document.h"
#include "support/Text.h"

namespace app {
namespace {

constexpr double kSheetMargin = 0.5;  // Inches.
constexpr double kHeadRoom = 0.25;    // Inches above the frame, for the running head.
constexpr double kFootRoom = 0.3;     // Inches below the frame, for the sheet number.

std::vector<double> ParseNumbers(const std::string& text, char separator) {
    std::vector<double> numbers;
    for (const auto& piece : gazetteer::Split(text, separator)) {
        const auto number = ParseDecimal(piece);
        if (!number) return {};
        numbers.push_back(*number);
    }
    return numbers;
}

constexpr PageSize Millimeters(int width, int height) {
    return {width / kMillimetersPerInch, height / kMillimetersPerInch};
}

constexpr SheetFormat kFormats[] = {{"a3", Millimeters(297, 420)}, {"a4", Millimeters(210, 297)},
                                    {"a5", Millimeters(148, 210)}, {"b5", Millimeters(176, 250)},
                                    {"letter", {8.5, 11}},         {"legal", {8.5, 14}},
                                    {"tabloid", {11, 17}}};

std::vector<std::string> FormatNames() {
    std::vector<std::string> names;
    for (const auto& format : kFormats) names.emplace_back(format.name);
    return names;
}

std::string Joined(const std::vector<std::string>& names) {
    std::string text;
    for (const auto& name : names) text += (text.empty() ? "" : ", ") + name;
    return text;
}

// Returns "mm", "in" or, for a length without a unit, an empty text.
std::string UnitOf(const std::string& length) {
    for (const char* unit : {"mm", "in"})
        if (length.ends_with(unit)) return unit;
    return {};
}

// Returns a length in inches, which has the given unit if it has none of its own; 0 for another
// form.
double ParseSide(const std::string& text, const std::string& otherUnit) {
    const std::string own = UnitOf(text);
    const double length = ParseDecimal(text.substr(0, text.size() - own.size())).value_or(0);
    return (own.empty() ? otherUnit : own) == "mm" ? length / kMillimetersPerInch : length;
}

}  // namespace

std::string LengthText(double inches, LengthUnit unit) {
    std::array<char, 48> text{};
    if (unit == LengthUnit::Inches)
        std::snprintf(text.data(), text.size(), "%.2f inches", inches);
    else
        std::snprintf(text.data(), text.size(), "%.1f mm", inches * kMillimetersPerInch);
    return text.data();
}

double ParseLength(const std::string& text) {
    return ParseSide(text, "in");
}

std::span<const SheetFormat> SheetFormats() {
    return kFormats;
}

PageSize ParsePageSize(const std::string& text) {
    std::string size = characters::FoldCase(text);
    std::erase(size, ' ');
    for (const auto& format : kFormats)
        if (format.name == size) return format.size;
    const auto sides = gazetteer::Split(size, 'x');
    PageSize page;
    if (sides.size() == 2)
        page = {ParseSide(sides[0], UnitOf(sides[1])), ParseSide(sides[1], "in")};
    const auto isSide = [](double inches) {
        return inches >= desk::kSmallestSheet && inches <= desk::kLargestSheet;
    };
    if (isSide(page.width) && isSide(page.height)) return page;
    throw UsageError("--page-size " + Shown(text) + ": the size must be " + Joined(FormatNames()) +
                     ", or WIDTHxHEIGHT in inches or with mm behind it, such as 6x9 or "
                     "148x210mm (each side from 0.01 to 200 inches)." +
                     Suggestion(size, FormatNames()));
}

FrameOption ParseFrame(const std::string& text, const PageSize& page) {
    if (text.empty()) {
        const double left = std::min(kSheetMargin, page.width / 10);
        const double edge = std::min(kSheetMargin, page.height / 10);
        return {left, edge + kFootRoom, page.width - 2 * left,
                std::max(page.height - 2 * edge - kHeadRoom - kFootRoom, page.height / 10)};
    }
    const auto numbers = ParseNumbers(text, ',');
    if (numbers.size() != 4 || numbers[2] <= 0 || numbers[3] <= 0)
        throw UsageError("--frame " + text +
                         ": the frame must be LEFT,BOTTOM,WIDTH,HEIGHT in inches.");
    const FrameOption frame{numbers[0], numbers[1], numbers[2], numbers[3]};
    constexpr double kRounding = 1e-9;
    if (frame.left < 0 || frame.bottom < 0 || frame.left + frame.width > page.width + kRounding ||
        frame.bottom + frame.height > page.height + kRounding)
        throw UsageError("--frame " + text + ": the frame must lie on the sheet.");
    return frame;
}

}  // namespace app
