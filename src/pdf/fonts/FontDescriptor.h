#pragma once

#include <cairo.h>
#include <freetype/freetype.h>
#include <hb.h>
#include <pango/pango.h>
#include <string>

namespace pdf {

/// Locks the FreeType face of a font while it exists.
class FreeTypeFace {
public:
    explicit FreeTypeFace(PangoFont* font);
    ~FreeTypeFace();
    FreeTypeFace(const FreeTypeFace&) = delete;
    FreeTypeFace& operator=(const FreeTypeFace&) = delete;

    FT_Face Get() const { return face_; }

private:
    cairo_scaled_font_t* scaled_;
    FT_Face face_;
};

/// Returns the PostScript name of a font without characters that are invalid in a PDF name,
/// and no longer than a name can be with the tag of a subset.
std::string FontName(hb_face_t* face);

/// Returns what the font's licence forbids of what a file does with it, as a clause; empty:
/// nothing.
std::string ForbiddenBy(PangoFont* font);

/// Returns the descriptor entries that do not depend on the subset.
std::string DescriptorEntries(PangoFont* font);

}  // namespace pdf
