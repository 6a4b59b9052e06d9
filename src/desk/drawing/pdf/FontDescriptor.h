#pragma once

#include <cairo.h>
#include <freetype/freetype.h>
#include <hb.h>
#include <pango/pango.h>
#include <string>

namespace desk::pdf {

/// The FreeType face of a font, locked as long as this lives.
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

/// The PostScript name of a font, without the characters that a name in the file cannot hold.
std::string FontName(hb_face_t* face);

/// The entries of a font's descriptor that do not depend on its subset.
std::string DescriptorEntries(PangoFont* font);

}  // namespace desk::pdf
