#pragma once

#include "desk/drawing/pdf/FontSubset.h"
#include "desk/drawing/pdf/Typeface.h"
#include "desk/text/Handles.h"

namespace desk::pdf {

/// A font of which the file holds the outlines of the glyphs shown, as the font itself has them.
class EmbeddedFont final : public Typeface {
public:
    EmbeddedFont(hb_face_t* face, FontSubset::Outlines outlines, FontNumbers& numbers);

    void Write(ObjectFile& file) override;

protected:
    int WidthOf(hb_codepoint_t glyph) override;

private:
    void WriteSubset(ObjectFile& file, const Subset& subset);
    int WriteDescriptor(ObjectFile& file, const FontSubset& font, const std::string& name);
    bool IsTrueType() const { return outlines_ == FontSubset::Outlines::TrueType; }

    FontSubset::Outlines outlines_;
    hb_face_t* face_;  ///< Lives as long as its PangoFont.
    std::unique_ptr<hb_font_t, Releaser<hb_font_destroy>> font_;  ///< In units of the design.
};

}  // namespace desk::pdf
