#pragma once

#include "desk/drawing/pdf/Typeface.h"
#include "desk/text/Handles.h"

namespace desk::pdf {

/// A font of which the file holds the outlines of the glyphs shown, unchanged.
class EmbeddedFont final : public Typeface {
public:
    /// The kind of a font's outlines, and how the file identifies its glyphs.
    enum class Outlines {
        None,        ///< There are no outlines that can be embedded.
        TrueType,    ///< By place in the font file.
        CffNames,    ///< By place, although the font's glyphs have names.
        CffNumbers,  ///< By the numbers (CIDs) that the font gives its glyphs.
    };
    static Outlines OutlinesOf(PangoFont* font);

    /// The font must live as long as this.
    EmbeddedFont(PangoFont* font, Outlines outlines, FontNumbers& numbers);

protected:
    int WidthOf(hb_codepoint_t glyph) override;
    /// Throws host::Failure if the font cannot be read.
    void WriteSubset(ObjectFile& file, const Subset& subset) override;

private:
    bool IsTrueType() const { return outlines_ == Outlines::TrueType; }
    int WriteDescriptor(ObjectFile& file, std::string_view bytes, const std::string& name);

    Outlines outlines_;
    PangoFont* pangoFont_;
    hb_face_t* face_;
    std::unique_ptr<hb_font_t, Releaser<hb_font_destroy>> font_;  ///< In units of the design.
};

}  // namespace desk::pdf
