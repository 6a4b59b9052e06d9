#pragma once

#include <span>
#include <string_view>

#include "desk/text/GlyphLine.h"
#include "desk/text/Handles.h"

namespace desk {

/// Script and language by which the shaper chooses glyphs.
struct Writing {
    hb_script_t script = HB_SCRIPT_COMMON;
    hb_language_t language = HB_LANGUAGE_INVALID;
};

/// Turns a left-to-right line into glyphs in the buffer. Returns its width in the font's units.
GlyphUnits ShapeLine(hb_buffer_t* buffer, hb_font_t* font, const Writing& writing,
                     std::string_view line);

std::span<const hb_glyph_info_t> Glyphs(hb_buffer_t* buffer);
std::span<const hb_glyph_position_t> Positions(hb_buffer_t* buffer);

}  // namespace desk
