#pragma once

#include <string_view>
#include <vector>

#include "desk/text/FontCache.h"
#include "desk/text/ShapedRunCache.h"

namespace desk {

/// Script and language for the shaper.
struct Writing {
    hb_script_t script = HB_SCRIPT_COMMON;
    hb_language_t language = HB_LANGUAGE_INVALID;
};

/// Returns script and language of plain texts of a class.
Writing WritingOf(PlainClass plain);

/// Shapes left-to-right runs.
class RunShaper {
public:
    RunShaper() : buffer_(hb_buffer_create()) {}

    /// Shapes bytes start to end of a text in their context. Glyphs are valid until the next call.
    ShapedRun Shape(hb_font_t* font, const Writing& writing, std::string_view text, std::size_t end,
                    std::size_t start = 0);

private:
    void ShapeAll(hb_font_t* font, const Writing& writing, std::string_view text);

    BufferHandle buffer_;
    std::vector<RunGlyph> glyphs_;
};

}  // namespace desk
