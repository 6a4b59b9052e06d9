#include "desk/text/TextSetter.h"

#include "desk/text/TextBlock.h"

namespace desk {

host::TextExtent TextSetter::Set(const PlacedText& placed, PlacedGlyphs& into) {
    if (placed.text.find('\r') == std::string_view::npos)
        return SetLines(placed, placed.text, into);
    return SetLines(placed, WithoutReturns(placed.text), into);
}

host::TextExtent TextSetter::SetLines(const PlacedText& placed, std::string_view text,
                                      PlacedGlyphs& into) {
    const ResolvedFont& font = *placed.font;
    host::TextExtent size{0, LineCount(text) * font.lineHeight};
    double down = FirstBaseline(font, size.ySize, placed.placement.vertical);
    ForEachLine(text, [&](std::string_view line) {
        size.xSize = std::max(size.xSize, SetLine(placed, line, down, into));
        down += font.lineHeight;
    });
    return size;
}

/// Adds a line aligned at the point. Returns its width in points.
double TextSetter::SetLine(const PlacedText& placed, std::string_view line, double down,
                           PlacedGlyphs& into) {
    const ResolvedFont& font = *placed.font;
    const Baseline point{placed.x, placed.y, placed.placement.angle};
    const double leftShare = LeftShare(placed.placement.horizontal);
    if (const auto plain = direct_.Place(font, line, into.Glyphs())) {
        const double width = Points(*plain);
        into.EndLine(font.font.get(), Along(point, -leftShare * width, down));
        return width;
    }
    // The leader of a left-aligned line continues to the right.
    const auto leader = leftShare == 0 ? LeaderSide::Right : LeaderSide::Reading;
    const double width = Points(layout_.Shape(font, line, leader));
    layout_.Place(into, Along(point, -leftShare * width, down));
    return width;
}

}  // namespace desk
