#include "desk/text/LayoutShaper.h"

#include <algorithm>
#include <pango/pangocairo.h>
#include <span>

namespace desk {
namespace {

/// A layout would end a line at these as well.
bool IsSeparator(gunichar character) {
    return character == 0x85 || character == 0x2028 || character == 0x2029;
}

/// The line with blanks for separators, since only LF ends a line, and with U+FFFD for whatever is
/// not UTF-8.
std::string Readable(std::string_view line) {
    const GStringHandle valid(g_utf8_make_valid(line.data(), static_cast<gssize>(line.size())));
    std::string text;
    for (const char* place = valid.get(); *place;) {
        const char* const next = g_utf8_find_next_char(place, nullptr);
        if (IsSeparator(g_utf8_get_char(place)))
            text += ' ';
        else
            text.append(place, next);
        place = next;
    }
    return text;
}

static_assert(kGlyphUnitsPerPoint == PANGO_SCALE);

std::span<const PangoGlyphInfo> Glyphs(const PangoGlyphItem& part) {
    return {part.glyphs->glyphs, static_cast<std::size_t>(part.glyphs->num_glyphs)};
}

/// Where the bytes end that begin at a place of a part: where the next ones begin, which in a part
/// from right to left stand before them.
int EndOfBytes(const PangoGlyphItem& part, int start) {
    const std::span<const gint> starts(part.glyphs->log_clusters, Glyphs(part).size());
    int end = part.item->length;
    for (const int other : starts)
        if (other > start) end = std::min(end, other);
    return end;
}

/// Adds the glyphs of a part in one font and direction, its text in the order of the glyphs:
/// readers of a file put a text from right to left in order by themselves, and take jumps to the
/// left for gaps. Returns its width.
int Gather(const PangoGlyphItem& part, std::string_view text, GlyphStore& line) {
    const auto glyphs = Glyphs(part);
    int pen = 0;
    std::size_t shown = 0;
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        const PangoGlyphGeometry& place = glyphs[i].geometry;
        if (glyphs[i].glyph != PANGO_GLYPH_EMPTY) {
            line.Add(glyphs[i].glyph, pen + place.x_offset, place.y_offset, 0);
            ++shown;
        }
        pen += place.width;
        const int start = part.glyphs->log_clusters[i];
        if (i + 1 < glyphs.size() && part.glyphs->log_clusters[i + 1] == start) continue;
        const auto bytes = text.substr(
            static_cast<std::size_t>(part.item->offset) + static_cast<std::size_t>(start),
            static_cast<std::size_t>(EndOfBytes(part, start) - start));
        if (shown > 0) {
            line.Join(shown, bytes.size());
            line.AddText(bytes);
        }
        shown = 0;
    }
    return pen;
}

}  // namespace

LayoutShaper::LayoutShaper(PangoContext* context) : layout_(pango_layout_new(context)) {
    pango_layout_set_single_paragraph_mode(layout_.get(), TRUE);
}

int LayoutShaper::Shape(const ResolvedFont& font, std::string_view line) {
    if (font_ != &font) {
        pango_layout_set_font_description(layout_.get(), font.description.get());
        font_ = &font;
    }
    text_ = Readable(line);
    pango_layout_set_text(layout_.get(), text_.data(), static_cast<int>(text_.size()));
    PangoRectangle logical{};
    pango_layout_line_get_extents(pango_layout_get_line_readonly(layout_.get(), 0), nullptr,
                                  &logical);
    return logical.width;
}

void LayoutShaper::Place(SetTexts& into, Baseline baseline) {
    const PangoLayoutLine* const line = pango_layout_get_line_readonly(layout_.get(), 0);
    for (const GSList* run = line->runs; run; run = run->next) {
        const auto& part = *static_cast<const PangoGlyphItem*>(run->data);
        const int width = Gather(part, text_, into.Glyphs());
        into.EndLine(part.item->analysis.font, baseline);
        baseline = Along(baseline, width / kGlyphUnitsPerPoint, 0);
    }
}

}  // namespace desk
