#pragma once

#include <pango/pango.h>
#include <string>

#include "desk/drawing/pdf/Typeface.h"
#include "desk/text/Handles.h"

namespace desk::pdf {

/// A font of which the file holds drawings of the glyphs shown: a font that is emboldened, slanted
/// or varied for drawing, one of pictures, and the boxes for characters that no font has.
class DrawnFont final : public Typeface {
public:
    enum class Drawings { Outlines, Pictures };

    DrawnFont(PangoFont* font, double points, Drawings drawings, FontNumbers& numbers);

protected:
    int WidthOf(hb_codepoint_t glyph) override;
    void WriteSubset(ObjectFile& file, const Subset& subset) override;

private:
    int WriteDrawing(ObjectFile& file, const CodeTable::Entry& entry, const std::string& name,
                     std::string& pictures) const;

    PangoFont* font_;
    Drawings drawings_;
    double thousandth_;  ///< Points in a thousandth of its size.
};

}  // namespace desk::pdf
