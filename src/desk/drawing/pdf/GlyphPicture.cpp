#include "desk/drawing/pdf/GlyphPicture.h"

#include <cmath>
#include <cstdint>
#include <pango/pangocairo.h>
#include <span>

#include "desk/devices/CairoHandles.h"
#include "desk/drawing/pdf/Numbers.h"

namespace desk::pdf {
namespace {

/// Fonts of coloured signs have them some 130 pixels high.
constexpr double kPixelsPerSize = 128;
constexpr double kScale = 1000 / kPixelsPerSize;

void Draw(cairo_surface_t* surface, PangoFont* font, PangoGlyph glyph, double pixelsPerPoint) {
    const CairoContext context(cairo_create(surface));
    cairo_scale(context.get(), pixelsPerPoint, pixelsPerPoint);
    PangoGlyphInfo info{};
    info.glyph = glyph;
    int cluster = 0;
    PangoGlyphString string{1, &info, &cluster, 0};
    cairo_move_to(context.get(), 0, 0);
    pango_cairo_show_glyph_string(context.get(), font, &string);
    cairo_surface_flush(surface);
}

std::string ImageEntries(int width, int height, const char* colors) {
    return "/Type/XObject/Subtype/Image/BitsPerComponent 8/Width " + std::to_string(width) +
           "/Height " + std::to_string(height) + "/ColorSpace/" + colors;
}

}  // namespace

GlyphPicture::GlyphPicture(PangoFont* font, PangoGlyph glyph, double thousandth) {
    const double pixelsPerPoint = 1 / (kScale * thousandth);
    PangoRectangle ink{};
    pango_font_get_glyph_extents(font, glyph, &ink, nullptr);
    const double pixelsPerUnit = pixelsPerPoint / PANGO_SCALE;
    left_ = static_cast<int>(std::floor(ink.x * pixelsPerUnit));
    top_ = static_cast<int>(std::floor(ink.y * pixelsPerUnit));
    width_ = static_cast<int>(std::ceil((ink.x + ink.width) * pixelsPerUnit)) - left_ + 1;
    height_ = static_cast<int>(std::ceil((ink.y + ink.height) * pixelsPerUnit)) - top_ + 1;
    const CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width_, height_));
    cairo_surface_set_device_offset(surface.get(), -left_, -top_);
    Draw(surface.get(), font, glyph, pixelsPerPoint);
    // Rows of four-byte pixels follow each other without gaps; colours are multiplied by opacity.
    const void* const bytes = cairo_image_surface_get_data(surface.get());
    const std::span pixels(static_cast<const std::uint32_t*>(bytes),
                           static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
    for (const std::uint32_t pixel : pixels) {
        const std::uint32_t opacity = pixel >> 24;
        opacities_ += static_cast<char>(opacity);
        for (const unsigned shift : {16U, 8U, 0U}) {
            const std::uint32_t share = (pixel >> shift) & 0xFF;
            colors_ += static_cast<char>(opacity == 0 ? 0 : share * 0xFF / opacity);
        }
    }
}

int GlyphPicture::WritePixels(ObjectFile& file) const {
    std::string entries = ImageEntries(width_, height_, "DeviceRGB") + "/SMask ";
    AppendReference(entries,
                    file.WriteStream(ImageEntries(width_, height_, "DeviceGray"), opacities_));
    return file.WriteStream(entries, colors_);
}

std::string GlyphPicture::Stream(double width, const std::string& name) const {
    std::string stream;
    AppendNumber(stream, width);
    stream += " 0 d0\n";
    for (const double entry : {width_ * kScale, 0.0, 0.0, height_ * kScale, left_ * kScale,
                               -(top_ + height_) * kScale}) {
        AppendNumber(stream, entry);
        stream += ' ';
    }
    return stream + "cm\n/" + name + " Do";
}

}  // namespace desk::pdf
