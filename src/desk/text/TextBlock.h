#pragma once

#include <algorithm>
#include <numbers>
#include <string>
#include <string_view>

#include "desk/text/FontCache.h"

/// Layout of lines in a text's box, and of the box at its point.
namespace desk {

inline std::string WithoutReturns(std::string_view text) {
    std::string rest(text);
    std::erase(rest, '\r');
    return rest;
}

/// Calls visit for each line of a text without CR.
template <class Visit>
void ForEachLine(std::string_view text, const Visit& visit) {
    for (std::size_t start = 0;;) {
        const std::size_t end = text.find('\n', start);
        visit(text.substr(start, end - start));
        if (end == std::string_view::npos) return;
        start = end + 1;
    }
}

inline double LineCount(std::string_view text) {
    return 1 + static_cast<double>(std::count(text.begin(), text.end(), '\n'));
}

/// Share of the free width that lies left of a line or a box.
inline double LeftShare(int horizontal) {
    return horizontal == 1 ? 0.5 : horizontal == 2 ? 1.0 : 0.0;
}

/// Returns the distance from the point down to the first baseline, in points.
inline double FirstBaseline(const ResolvedFont& font, double height, int vertical) {
    switch (vertical) {
        case 1:
            return font.ascent - height / 2;
        case 2:
            return font.lineHeight - height;
        case 3:
            return font.ascent - height;
        default:
            return font.ascent;
    }
}

inline double Radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}

}  // namespace desk
