#include "desk/text/RunShaper.h"

#include <span>

namespace desk {
namespace {

constexpr std::uint32_t kGreatestGlyph = 0xFFFFFF;
constexpr std::uint32_t kMostBytes = 0xFF;

/// The language that Pango assigns to a run of the script, so that both select the same forms.
hb_language_t SampleLanguage(PangoScript script) {
    PangoLanguage* const language = pango_script_get_sample_language(script);
    return hb_language_from_string((pango_language_to_string)(language), -1);
}

/// Returns the advance of the last of three final dots if the run can be split there, else 0.
int DotStep(std::span<const RunGlyph> glyphs, std::string_view text, hb_glyph_flags_t last) {
    if (glyphs.size() < 3 || !text.ends_with("...")) return 0;
    if ((last & HB_GLYPH_FLAG_UNSAFE_TO_BREAK) != 0) return 0;
    const auto dots = glyphs.last(3);
    const int step = dots[2].x - dots[1].x;
    const bool isRegular = dots[0].id == dots[1].id && dots[1].id == dots[2].id &&
                           dots[1].bytes == 1 && dots[2].bytes == 1 &&
                           dots[1].x - dots[0].x == step;
    return isRegular ? step : 0;
}

}  // namespace

Writing WritingOf(PlainClass plain) {
    switch (plain) {
        case PlainClass::Greek:
            return {HB_SCRIPT_GREEK, SampleLanguage(PANGO_SCRIPT_GREEK)};
        case PlainClass::Cyrillic:
            return {HB_SCRIPT_CYRILLIC, SampleLanguage(PANGO_SCRIPT_CYRILLIC)};
        default:
            return {plain == PlainClass::Latin ? HB_SCRIPT_LATIN : HB_SCRIPT_COMMON,
                    hb_language_from_string(kTextLanguage, -1)};
    }
}

void RunShaper::ShapeAll(hb_font_t* font, const Writing& writing, std::string_view text) {
    hb_buffer_t* const buffer = buffer_.get();
    hb_buffer_clear_contents(buffer);
    hb_buffer_set_direction(buffer, HB_DIRECTION_LTR);
    hb_buffer_set_script(buffer, writing.script);
    hb_buffer_set_language(buffer, writing.language);
    hb_buffer_set_flags(buffer,
                        static_cast<hb_buffer_flags_t>(HB_BUFFER_FLAG_BOT | HB_BUFFER_FLAG_EOT));
    const int length = static_cast<int>(text.size());
    hb_buffer_add_utf8(buffer, text.data(), length, 0, length);
    hb_shape(font, buffer, nullptr, 0);
}

ShapedRun RunShaper::Shape(hb_font_t* font, const Writing& writing, std::string_view text,
                           std::size_t end, std::size_t start) {
    ShapeAll(font, writing, text);
    unsigned count = 0;
    const hb_glyph_info_t* const infos = hb_buffer_get_glyph_infos(buffer_.get(), &count);
    const hb_glyph_position_t* const positions =
        hb_buffer_get_glyph_positions(buffer_.get(), &count);
    const auto startOf = [&](unsigned i) { return i < count ? infos[i].cluster : text.size(); };
    const auto canCutAt = [&](unsigned i, std::size_t place) {
        if (startOf(i) != place) return false;
        return i == count ||
               (hb_glyph_info_get_glyph_flags(&infos[i]) & HB_GLYPH_FLAG_UNSAFE_TO_BREAK) == 0;
    };
    ShapedRun run;
    run.hasGlyphs = true;
    glyphs_.clear();
    unsigned i = 0;
    while (startOf(i) < start) ++i;
    run.standsAlone = canCutAt(i, start);
    for (; startOf(i) < end; ++i) {
        unsigned next = i + 1;
        while (next < count && infos[next].cluster == infos[i].cluster) ++next;
        const bool isFirst = i == 0 || infos[i - 1].cluster != infos[i].cluster;
        const std::size_t cluster = isFirst ? startOf(next) - infos[i].cluster : 0;
        const GlyphUnits x = run.width + positions[i].x_offset;
        glyphs_.push_back({infos[i].codepoint & kGreatestGlyph,
                           static_cast<std::uint32_t>(cluster) & kMostBytes,
                           static_cast<std::int32_t>(x)});
        const RunGlyph& glyph = glyphs_.back();
        run.hasGlyphs = run.hasGlyphs && positions[i].y_offset == 0 && glyph.x == x &&
                        glyph.id == infos[i].codepoint && glyph.bytes == cluster;
        run.width += positions[i].x_advance;
    }
    run.standsAlone = run.standsAlone && canCutAt(i, end);
    // Tables of pairs from before OpenType spread the kerning over both glyphs.
    run.movesNext = i < count && (positions[i].x_offset != 0 ||
                                  positions[i].x_advance !=
                                      hb_font_get_glyph_h_advance(font, infos[i].codepoint));
    run.glyphs = glyphs_;
    if (!glyphs_.empty())
        run.dotStep =
            DotStep(glyphs_, text.substr(0, end), hb_glyph_info_get_glyph_flags(&infos[i - 1]));
    return run;
}

}  // namespace desk
