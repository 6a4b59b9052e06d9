#pragma once

#include <string_view>
#include <vector>

#include "desk/text/FontCache.h"
#include "desk/text/RunMemory.h"

namespace desk {

/// Script and language by which the shaper chooses glyphs.
struct Writing {
    hb_script_t script = HB_SCRIPT_COMMON;
    hb_language_t language = HB_LANGUAGE_INVALID;
};

/// The writing of plain texts of a class.
Writing WritingOf(PlainClass plain);

/// Shapes runs from left to right.
class RunShaper {
public:
    RunShaper() : buffer_(hb_buffer_create()) {}

    /// Shapes the bytes of a text from start to end with regard to what is around them. The glyphs
    /// stand until the next call.
    ShapedRun Shape(hb_font_t* font, const Writing& writing, std::string_view text, std::size_t end,
                    std::size_t start = 0);

private:
    void ShapeAll(hb_font_t* font, const Writing& writing, std::string_view text);

    BufferHandle buffer_;
    std::vector<RunGlyph> glyphs_;
};

}  // namespace desk
