#pragma once

#include <span>
#include <string>
#include <string_view>

namespace app {

inline constexpr double kMillimetersPerInch = 25.4;

enum class LengthUnit { Inches, Millimeters };

/// Returns a length for a sentence: "0.25 inches" or "6.4 mm".
std::string LengthText(double inches, LengthUnit unit);

/// Parses a length in inches or with "mm" or "in" behind it. Returns 0 for another form.
double ParseLength(const std::string& text);

/// Inches.
struct PageSize {
    double width = 0;
    double height = 0;
};

struct SheetFormat {
    std::string_view name;
    PageSize size;
};

/// The formats that have a name, upright: those of ISO 216 and of North America.
std::span<const SheetFormat> SheetFormats();

/// Parses the name of a format, such as "letter" or "a4", or "WIDTHxHEIGHT" in inches or with "mm"
/// or "in" behind it or behind each, each side from 0.01 to 200 inches. Throws UsageError for
/// another form.
PageSize ParsePageSize(const std::string& text);

/// A rectangle on the sheet, in inches from its lower left corner.
struct FrameOption {
    double left = 0;
    double bottom = 0;
    double width = 0;
    double height = 0;
};

/// Parses "LEFT,BOTTOM,WIDTH,HEIGHT" in inches. An empty text gives a frame inside half-inch
/// margins, with room for a running head and a sheet number. Throws UsageError for another form or
/// a frame outside the sheet.
FrameOption ParseFrame(const std::string& text, const PageSize& page);

}  // namespace app
