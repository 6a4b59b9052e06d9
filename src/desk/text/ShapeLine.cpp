#include "desk/text/ShapeLine.h"

namespace desk {

GlyphUnits ShapeLine(hb_buffer_t* buffer, hb_font_t* font, const Writing& writing,
                     std::string_view line) {
    hb_buffer_clear_contents(buffer);
    hb_buffer_set_direction(buffer, HB_DIRECTION_LTR);
    hb_buffer_set_script(buffer, writing.script);
    hb_buffer_set_language(buffer, writing.language);
    hb_buffer_set_flags(buffer,
                        static_cast<hb_buffer_flags_t>(HB_BUFFER_FLAG_BOT | HB_BUFFER_FLAG_EOT));
    const int length = static_cast<int>(line.size());
    hb_buffer_add_utf8(buffer, line.data(), length, 0, length);
    hb_shape(font, buffer, nullptr, 0);
    GlyphUnits width = 0;
    for (const auto& position : Positions(buffer)) width += position.x_advance;
    return width;
}

std::span<const hb_glyph_info_t> Glyphs(hb_buffer_t* buffer) {
    unsigned int count = 0;
    const hb_glyph_info_t* const infos = hb_buffer_get_glyph_infos(buffer, &count);
    return {infos, count};
}

std::span<const hb_glyph_position_t> Positions(hb_buffer_t* buffer) {
    unsigned int count = 0;
    const hb_glyph_position_t* const positions = hb_buffer_get_glyph_positions(buffer, &count);
    return {positions, count};
}

}  // namespace desk
