#pragma once

#include <pango/pango.h>
#include <string>

#include "glyphs/Releaser.h"
#include "pdf/color/PageColors.h"
#include "pdf/fonts/Typeface.h"

namespace pdf {

/// A Type 3 font with drawings of the used glyphs: for fonts that are emboldened, slanted or
/// varied, for picture fonts, and for the boxes of missing characters.
class DrawnFont final : public Typeface {
public:
    enum class Drawings { Outlines, Pictures };

    DrawnFont(PangoFont* font, double points, Drawings drawings, FontNumbers& numbers,
              PageColors& colors);

protected:
    int WidthOf(hb_codepoint_t glyph) override;
    void WriteSubset(ObjectFile& file, const Subset& subset) override;

private:
    int WriteDrawing(ObjectFile& file, const CodeTable::Entry& entry, const std::string& name,
                     std::string& pictures) const;

    PangoFont* font_;
    Drawings drawings_;
    PageColors& colors_;
    double thousandth_;  ///< A thousandth of the font size, in points.
};

}  // namespace pdf
