#include "pdf/document/PressPage.h"

#include <algorithm>

#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

// Points.
constexpr double kLeastMarkDistance = 6;  ///< From the sheet: a cut that is off shows no mark.
constexpr double kMarkLength = 15;
constexpr double kMarkWidth = 0.25;

/// What readers show.
constexpr double kLargestPage = 14400;

double MarkDistance(const Press& press) {
    return std::max(press.bleed, kLeastMarkDistance);
}

/// What a page has beyond each edge of the sheet.
double Margin(const Press& press) {
    return press.cropMarks ? MarkDistance(press) + kMarkLength : press.bleed;
}

void AppendNumbers(std::string& out, std::initializer_list<double> numbers) {
    for (const double number : numbers) {
        AppendNumber(out, number);
        out += ' ';
    }
}

std::string BoxText(const char* name, double margin, double width, double height) {
    std::string box = std::string("/") + name + '[';
    AppendNumbers(box, {-margin, -margin, width + margin, height + margin});
    box.back() = ']';
    return box;
}

void AppendLine(std::string& out, double x0, double y0, double x1, double y1) {
    AppendNumbers(out, {x0, y0});
    out += "m ";
    AppendNumbers(out, {x1, y1});
    out += "l\n";
}

/// Two lines at each corner, which meet there if they are drawn on.
void AppendCropMarks(std::string& out, const Press& press, double width, double height) {
    const double from = MarkDistance(press);
    const double to = from + kMarkLength;
    for (const double y : {0.0, height}) {
        AppendLine(out, -to, y, -from, y);
        AppendLine(out, width + from, y, width + to, y);
    }
    for (const double x : {0.0, width}) {
        AppendLine(out, x, -to, x, -from);
        AppendLine(out, x, height + from, x, height + to);
    }
}

}  // namespace

std::string PageBoxes(const Press* press, double width, double height) {
    const double margin = press ? Margin(*press) : 0;
    if (margin > 0 && std::max(width, height) + 2 * margin > kLargestPage)
        throw Error("The sheet with its bleed and crop marks is larger than 200 inches.");
    std::string media = BoxText("MediaBox", margin, width, height);
    if (!press) return media;
    return media + BoxText("BleedBox", press->bleed, width, height) +
           BoxText("TrimBox", 0, width, height);
}

std::string InsideMarks(const std::string& content, const Press& press, double width, double height,
                        PageColors& colors) {
    if (!press.cropMarks) return content;
    std::string page = "q ";
    AppendNumbers(page,
                  {-press.bleed, -press.bleed, width + 2 * press.bleed, height + 2 * press.bleed});
    page += "re W n\n" + content + "Q\n";
    AppendNumber(page, kMarkWidth);
    page += " w\n";
    colors.AppendAllPlates(page);
    AppendCropMarks(page, press, width, height);
    return page + "S\n";
}

}  // namespace pdf
