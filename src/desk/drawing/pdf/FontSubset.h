#pragma once

#include <cstdint>
#include <hb.h>
#include <string>
#include <string_view>
#include <unordered_map>

#include "desk/text/Handles.h"

namespace desk::pdf {

/// A font file that holds some glyphs of a font alone.
class FontSubset {
public:
    enum class Outlines {
        None,        ///< None that a subset can be made of.
        TrueType,    ///< A font file calls its glyphs by their place in it.
        CffNames,    ///< So it does here, although they have names.
        CffNumbers,  ///< Here they have numbers beside.
    };

    static Outlines OutlinesOf(hb_face_t* face);

    /// Throws host::Failure if the font cannot be read.
    FontSubset(hb_face_t* face, const hb_set_t* glyphs);

    /// A TrueType font, or the CFF table alone.
    std::string_view Bytes() const;
    /// The number by which the subset calls a glyph of the font.
    unsigned NumberOf(hb_codepoint_t glyph) const { return numbers_.at(glyph); }

private:
    BlobHandle bytes_;
    std::unordered_map<hb_codepoint_t, unsigned> numbers_;
};

}  // namespace desk::pdf
