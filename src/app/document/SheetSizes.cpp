#include "app/document/SheetSizes.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include "app/document/Errors.h"
#include "app/document/KeyValues.h"
#include "desk/documents/Document.h"
#include "desk/unicode/FoldCase.h"
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

std::string FormatNames() {
    std::string names;
    for (const auto& format : kFormats)
        names += (names.empty() ? "" : ", ") + std::string(format.name);
    return names;
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

std::span<const SheetFormat> SheetFormats() {
    return kFormats;
}

PageSize ParsePageSize(const std::string& text) {
    const std::string size = desk::FoldCase(text);
    for (const auto& format : kFormats)
        if (format.name == size) return format.size;
    const bool isMetric = size.ends_with("mm");
    const bool hasUnit = isMetric || size.ends_with("in");
    const auto numbers = ParseNumbers(size.substr(0, size.size() - (hasUnit ? 2 : 0)), 'x');
    PageSize page;
    if (numbers.size() == 2) page = {numbers[0], numbers[1]};
    if (isMetric) page = {page.width / kMillimetersPerInch, page.height / kMillimetersPerInch};
    const auto isSide = [](double inches) {
        return inches >= desk::kSmallestSheet && inches <= desk::kLargestSheet;
    };
    if (isSide(page.width) && isSide(page.height)) return page;
    throw UsageError("--page-size " + Shown(text) + ": the size must be " + FormatNames() +
                     ", or WIDTHxHEIGHT in inches or with mm behind it, such as 6x9 or "
                     "148x210mm (each side from 0.01 to 200 inches).");
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
