#pragma once

#include <pango/pango.h>
#include <string>

#include "desk/drawing/pdf/Typeface.h"
#include "desk/text/Handles.h"

namespace desk::pdf {

/// A font of which the file holds drawings of the glyphs shown: a font that is made bold, slanted
/// or varied on the way, one of pictures, and the boxes for characters that no font has.
class DrawnFont final : public Typeface {
public:
    enum class Drawings { Outlines, Pictures };

    DrawnFont(PangoFont* font, double points, Drawings drawings, FontNumbers& numbers);

    void Write(ObjectFile& file) override;

protected:
    int WidthOf(hb_codepoint_t glyph) override;

private:
    void WriteSubset(ObjectFile& file, const Subset& subset);
    int WriteDrawing(ObjectFile& file, const CodeTable::Entry& entry, std::string& pictures) const;

    PangoFont* font_;
    Drawings drawings_;
    double thousandth_;  ///< Points in a thousandth of its size.
};

}  // namespace desk::pdf
