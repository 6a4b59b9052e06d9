#pragma once

#include <pango/pango.h>
#include <string>

#include "desk/drawing/pdf/Typeface.h"
#include "desk/text/Handles.h"

namespace desk::pdf {

/// A font of which the file holds drawings of the glyphs shown: a font that is made bold, slanted
/// or varied on the way, one of another kind, and the boxes for characters that no font has.
class OutlineFont final : public Typeface {
public:
    OutlineFont(PangoFont* font, double points, FontNumbers& numbers);

    void Write(ObjectFile& file) override;

protected:
    int WidthOf(hb_codepoint_t glyph) override;

private:
    void WriteSubset(ObjectFile& file, const Subset& subset);
    std::string DrawingOf(const CodeTable::Entry& entry) const;

    PangoFont* font_;
    double thousandth_;  ///< Points in a thousandth of its size.
};

}  // namespace desk::pdf
