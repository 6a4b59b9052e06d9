#pragma once

#include <memory>
#include <pango/pango.h>
#include <unordered_map>
#include <vector>

#include "glyphs/Releaser.h"
#include "pdf/color/PageColors.h"
#include "pdf/fonts/DrawnFont.h"
#include "pdf/fonts/EmbeddedFont.h"
#include "pdf/fonts/Typeface.h"

namespace pdf {

/// A typeface at a size in points, stretched and slanted.
struct FontUse {
    Typeface* face = nullptr;
    Typeface* boxes = nullptr;  ///< For characters that no font has.
    hb_codepoint_t blank = 0;   ///< Glyph of the blank; 0: the font has none.
    double points = 0;
    double ascent = 0, descent = 0;  ///< Of the usual letters from the baseline, in points.
    double across = 1;               ///< Horizontal stretch.
    double slant = 0;                ///< Horizontal shear per unit of height.
};

class FontSet {
public:
    FontSet(ObjectFile& file, PageColors& colors) : colors_(colors), numbers_{file} {}

    const FontUse& Use(PangoFont* font) {
        if (!last_ || last_->font.get() != font) last_ = &Find(font);
        return last_->use;
    }

    /// Writes all fonts. Returns the pages' font resource entries.
    std::string Write();

private:
    struct Known {
        std::unique_ptr<PangoFont, glyphs::Releaser<g_object_unref>>
            font;  ///< Held, so that its address is not reused.
        FontUse use;
    };

    const Known& Find(PangoFont* font);
    void CheckLicence(PangoFont* font);
    FontUse NewUse(PangoFont* font);
    Typeface* Embedded(PangoFont* font, EmbeddedFont::Outlines outlines);
    Typeface* AddDrawn(PangoFont* font, DrawnFont::Drawings drawings);
    Typeface* Add(std::unique_ptr<Typeface> face);

    PageColors& colors_;
    FontNumbers numbers_;
    std::vector<std::unique_ptr<Typeface>> faces_;
    std::unordered_map<hb_face_t*, Typeface*> embedded_;
    std::vector<std::unique_ptr<Known>> known_;
    const Known* last_ = nullptr;
};

}  // namespace pdf
