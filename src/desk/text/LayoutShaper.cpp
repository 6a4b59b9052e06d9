#include "desk/text/LayoutShaper.h"

#include <pango/pangocairo.h>
#include <span>
#include <utility>

namespace desk {
namespace {

static_assert(kGlyphUnitsPerPoint == PANGO_SCALE);

std::span<const PangoGlyphInfo> Glyphs(const PangoGlyphItem& part) {
    return {part.glyphs->glyphs, static_cast<std::size_t>(part.glyphs->num_glyphs)};
}

/// Sets fixed widths for the boxes of missing characters, at least as wide as drawn. Pango derives
/// them from the digits of a fallback font, which was observed to change by 1/60 within a run. Size
/// is in 1/1024 point. Adds the missing characters to a set.
void SetBoxWidths(const PangoLayoutLine& line, int size, std::set<char32_t>& missing) {
    constexpr double kTwoDigits = 0.74;    // Ems, for codes of four digits in two rows.
    constexpr double kThreeDigits = 1.03;  // Ems, for longer codes.
    for (const GSList* run = line.runs; run; run = run->next) {
        PangoGlyphString& glyphs = *static_cast<PangoGlyphItem*>(run->data)->glyphs;
        for (int i = 0; i < glyphs.num_glyphs; ++i) {
            PangoGlyphInfo& info = glyphs.glyphs[i];
            if ((info.glyph & PANGO_GLYPH_UNKNOWN_FLAG) == 0) continue;
            const char32_t character = info.glyph & ~PANGO_GLYPH_UNKNOWN_FLAG;
            if (info.glyph != PANGO_GLYPH_INVALID_INPUT) missing.insert(character);
            const bool isLong = character > 0xFFFF;
            info.geometry.width = static_cast<int>((isLong ? kThreeDigits : kTwoDigits) * size);
        }
    }
}

GlyphUnits WidthOf(const PangoLayoutLine& line) {
    GlyphUnits width = 0;
    for (const GSList* run = line.runs; run; run = run->next)
        for (const PangoGlyphInfo& info : Glyphs(*static_cast<const PangoGlyphItem*>(run->data)))
            width += info.geometry.width;
    return width;
}

/// Adds the glyphs of a part in one font and direction, with its text in visual order: PDF readers
/// reorder right-to-left text themselves and take jumps to the left for gaps. Returns its width.
GlyphUnits Gather(const PangoGlyphItem& part, std::string_view text, const WholeLetters& letters,
                  GlyphStore& line) {
    const auto glyphs = Glyphs(part);
    const bool rightToLeft = part.item->analysis.level % 2 != 0;
    GlyphUnits pen = 0;
    std::size_t shown = 0;
    int before = part.item->length;  // Start of the bytes to the left.
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        const PangoGlyphGeometry& place = glyphs[i].geometry;
        if (glyphs[i].glyph != PANGO_GLYPH_EMPTY) {
            line.Add(glyphs[i].glyph, pen + place.x_offset, place.y_offset, 0);
            ++shown;
        }
        pen += place.width;
        const int start = part.glyphs->log_clusters[i];
        const int next =
            i + 1 < glyphs.size() ? part.glyphs->log_clusters[i + 1] : part.item->length;
        if (next == start) continue;
        const int end = rightToLeft ? std::exchange(before, start) : next;
        const auto first =
            static_cast<std::size_t>(part.item->offset) + static_cast<std::size_t>(start);
        const auto bytes =
            letters.Written(text.substr(first, static_cast<std::size_t>(end - start)), first);
        if (shown > 0) {
            line.Join(shown, bytes.size());
            line.AddText(bytes);
        }
        shown = 0;
    }
    return pen;
}

}  // namespace

LayoutShaper::LayoutShaper(PangoContext* context)
    : layout_(pango_layout_new(context)), wholeLetters_(context) {
    pango_layout_set_single_paragraph_mode(layout_.get(), TRUE);
}

GlyphUnits LayoutShaper::Shape(const ResolvedFont& font, std::string_view line, LeaderSide leader) {
    if (font_ != &font) {
        pango_layout_set_font_description(layout_.get(), font.description.get());
        font_ = &font;
    }
    text_ = Readable(line);
    PangoLayoutLine* shaped = ShapeText();
    if (LeaderStart(text_) < text_.size() &&
        pango_layout_line_get_resolved_direction(shaped) == PANGO_DIRECTION_RTL) {
        text_ = WithLeader(std::move(text_), leader);
        shaped = ShapeText();
    }
    return WidthOf(*shaped);
}

PangoLayoutLine* LayoutShaper::ShapeText() {
    const AttributesHandle attributes(pango_attr_list_new());
    text_ = wholeLetters_.Of(*font_, std::move(text_), attributes.get());
    pango_layout_set_text(layout_.get(), text_.data(), static_cast<int>(text_.size()));
    pango_layout_set_attributes(layout_.get(), attributes.get());
    PangoLayoutLine* const line = pango_layout_get_line(layout_.get(), 0);
    SetBoxWidths(*line, pango_font_description_get_size(font_->description.get()), missing_);
    return line;
}

void LayoutShaper::Place(PlacedGlyphs& into, Baseline baseline) {
    const PangoLayoutLine* const line = pango_layout_get_line_readonly(layout_.get(), 0);
    for (const GSList* run = line->runs; run; run = run->next) {
        const auto& part = *static_cast<const PangoGlyphItem*>(run->data);
        const GlyphUnits width = Gather(part, text_, wholeLetters_, into.Glyphs());
        into.EndLine(part.item->analysis.font, baseline);
        baseline = Along(baseline, Points(width), 0);
    }
}

}  // namespace desk
