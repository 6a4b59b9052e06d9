#pragma once

#include <memory>
#include <pango/pango.h>

#include "glyphs/Releaser.h"
#include "pdf/fonts/Typeface.h"

namespace pdf {

/// A font embedded as a subset with its original outlines.
class EmbeddedFont final : public Typeface {
public:
    /// Format of a font's outlines, and how the file identifies glyphs.
    enum class Outlines {
        None,        ///< No outlines that can be embedded.
        TrueType,    ///< By index in the font file.
        CffNames,    ///< By index; the font's own glyph names are not used.
        CffNumbers,  ///< By the font's glyph numbers (CIDs).
    };
    static Outlines OutlinesOf(PangoFont* font);

    /// The font must outlive this.
    EmbeddedFont(PangoFont* font, Outlines outlines, FontNumbers& numbers);

protected:
    int WidthOf(hb_codepoint_t glyph) override;
    /// Throws Error if the font cannot be read.
    void WriteSubset(ObjectFile& file, const Subset& subset) override;

private:
    bool IsTrueType() const { return outlines_ == Outlines::TrueType; }
    int WriteDescriptor(ObjectFile& file, std::string_view bytes, const std::string& name);

    Outlines outlines_;
    PangoFont* pangoFont_;
    hb_face_t* face_;
    std::unique_ptr<hb_font_t, glyphs::Releaser<hb_font_destroy>>
        font_;  ///< Scaled to design units.
};

}  // namespace pdf
