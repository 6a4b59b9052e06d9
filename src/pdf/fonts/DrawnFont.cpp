#include "pdf/fonts/DrawnFont.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <pango/pangocairo.h>
#include <span>

#include "pdf/file/Syntax.h"
#include "pdf/fonts/FontDescriptor.h"

namespace pdf {
namespace {

using CairoContext = std::unique_ptr<cairo_t, glyphs::Releaser<cairo_destroy>>;
using CairoSurface = std::unique_ptr<cairo_surface_t, glyphs::Releaser<cairo_surface_destroy>>;

/// Colour fonts have pictures about 130 pixels high.
constexpr double kPixelsPerSize = 128;
/// Size of a pixel in thousandths of the font size.
constexpr double kPixel = 1000 / kPixelsPerSize;

int LogicalWidth(PangoFont* font, PangoGlyph glyph) {
    PangoRectangle logical{};
    pango_font_get_glyph_extents(font, glyph, nullptr, &logical);
    return logical.width;
}

/// Draws a glyph at the origin of a surface with one of Pango's glyph string functions.
CairoContext DrawGlyph(cairo_surface_t* surface, double unitsPerPoint, PangoFont* font,
                       PangoGlyph glyph, decltype(pango_cairo_show_glyph_string)* draw) {
    CairoContext context(cairo_create(surface));
    cairo_scale(context.get(), unitsPerPoint, unitsPerPoint);
    PangoGlyphInfo info{};
    info.glyph = glyph;
    info.geometry.width = LogicalWidth(font, glyph);  // Centres the boxes of missing characters.
    int cluster = 0;
    PangoGlyphString string{1, &info, &cluster, 0};
    cairo_move_to(context.get(), 0, 0);
    draw(context.get(), font, &string);
    return context;
}

/// A glyph's outline as a content stream, in thousandths of the font size, Y upward.
class Outline {
public:
    /// Uses a large scale, because cairo stores coordinates in 1/256.
    Outline(PangoFont* font, PangoGlyph glyph, double scale) {
        const CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1));
        const auto context =
            DrawGlyph(surface.get(), scale, font, glyph, pango_cairo_glyph_string_path);
        const std::unique_ptr<cairo_path_t, glyphs::Releaser<cairo_path_destroy>> path(
            cairo_copy_path(context.get()));
        const std::span all(path->data, static_cast<std::size_t>(path->num_data));
        for (std::size_t i = 0; i < all.size();) {
            const auto length = static_cast<std::size_t>(all[i].header.length);
            for (const auto& place : all.subspan(i + 1, length - 1))
                AddPoint(place.point.x * scale, -place.point.y * scale);
            constexpr std::array kOperators = {"m\n", "l\n", "c\n", "h\n"};
            operators_ += kOperators.at(all[i].header.type);
            i += length;
        }
    }

    /// The width is the glyph's width in the file.
    std::string Stream(double width) const {
        std::string stream;
        for (const double value : {width, 0.0, std::floor(left_), std::floor(bottom_),
                                   std::ceil(right_), std::ceil(top_)})
            stream += Number(value) + ' ';
        return stream + "d1\n" + operators_ + "f";
    }

private:
    void AddPoint(double x, double y) {
        operators_ += Number(x, 1) + ' ' + Number(y, 1) + ' ';
        left_ = std::min(left_, x);
        right_ = std::max(right_, x);
        bottom_ = std::min(bottom_, y);
        top_ = std::max(top_, y);
    }

    std::string operators_;
    double left_ = 0, bottom_ = 0, right_ = 0, top_ = 0;
};

/// A glyph that the font stores as pixels, such as an emoji.
class Picture {
public:
    Picture(PangoFont* font, PangoGlyph glyph, double pixelsPerPoint) {
        PangoRectangle ink{};
        pango_font_get_glyph_extents(font, glyph, &ink, nullptr);
        const double pixelsPerUnit = pixelsPerPoint / PANGO_SCALE;
        left_ = static_cast<int>(std::floor(ink.x * pixelsPerUnit));
        top_ = static_cast<int>(std::floor(ink.y * pixelsPerUnit));
        width_ = static_cast<int>(std::ceil((ink.x + ink.width) * pixelsPerUnit)) - left_ + 1;
        height_ = static_cast<int>(std::ceil((ink.y + ink.height) * pixelsPerUnit)) - top_ + 1;
        const CairoSurface surface(
            cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width_, height_));
        cairo_surface_set_device_offset(surface.get(), -left_, -top_);
        DrawGlyph(surface.get(), pixelsPerPoint, font, glyph, pango_cairo_show_glyph_string);
        cairo_surface_flush(surface.get());
        ReadPixels(surface.get());
    }

    /// Writes the pixels and returns the object number.
    int WritePixels(ObjectFile& file, PageColors& colors) const {
        const int mask = file.WriteStream(Entries("/DeviceGray"), opacities_);
        return file.WriteStream(Entries(colors.PictureSpace()) + "/SMask " + Reference(mask),
                                colors_);
    }

    /// Returns the stream that shows the named picture as the glyph.
    std::string Stream(double width, const std::string& name) const {
        std::string stream = Number(width) + " 0 d0\n";
        for (const double entry : {width_ * kPixel, 0.0, 0.0, height_ * kPixel, left_ * kPixel,
                                   -(top_ + height_) * kPixel})
            stream += Number(entry) + ' ';
        return stream + "cm\n/" + name + " Do";
    }

private:
    /// Rows of four-byte pixels without gaps; colours are premultiplied.
    void ReadPixels(cairo_surface_t* surface) {
        const void* const bytes = cairo_image_surface_get_data(surface);
        const auto count = static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_);
        for (const auto pixel : std::span(static_cast<const std::uint32_t*>(bytes), count)) {
            const std::uint32_t opacity = pixel >> 24;
            opacities_ += static_cast<char>(opacity);
            for (const unsigned shift : {16U, 8U, 0U}) {
                const std::uint32_t share = (pixel >> shift) & 0xFF;
                colors_ += static_cast<char>(opacity == 0 ? 0 : share * 0xFF / opacity);
            }
        }
    }
    std::string Entries(const std::string& colors) const {
        return "/Type/XObject/Subtype/Image/BitsPerComponent 8/Width " + std::to_string(width_) +
               "/Height " + std::to_string(height_) + "/ColorSpace" + colors;
    }

    int left_, top_, width_, height_;  ///< Pixels from the glyph's origin, Y downward.
    std::string colors_;               ///< Red, green and blue of each pixel.
    std::string opacities_;            ///< One per pixel, 0 to 255.
};

}  // namespace

DrawnFont::DrawnFont(PangoFont* font, double points, Drawings drawings, FontNumbers& numbers,
                     PageColors& colors)
    : Typeface(CodeTable::Lengths::One, numbers),
      font_(font),
      drawings_(drawings),
      colors_(colors),
      thousandth_(points / 1000) {}

int DrawnFont::WidthOf(hb_codepoint_t glyph) {
    return static_cast<int>(std::lround(LogicalWidth(font_, glyph) / (PANGO_SCALE * thousandth_)));
}

/// Writes the stream of a glyph and returns its object number; appends the pictures that it uses.
int DrawnFont::WriteDrawing(ObjectFile& file, const CodeTable::Entry& entry,
                            const std::string& name, std::string& pictures) const {
    if (drawings_ == Drawings::Outlines)
        return file.WriteStream("",
                                Outline(font_, entry.glyph, 1 / thousandth_).Stream(entry.width));
    const Picture picture(font_, entry.glyph, 1 / (kPixel * thousandth_));
    pictures += '/' + name + ' ' + Reference(picture.WritePixels(file, colors_));
    return file.WriteStream("", picture.Stream(entry.width, name));
}

void DrawnFont::WriteSubset(ObjectFile& file, const Subset& subset) {
    constexpr int kCodes = 256;
    std::string differences;
    std::string drawings;
    std::string pictures;
    std::array<double, kCodes> widths{};
    for (const auto& entry : subset.codes.Entries()) {
        widths.at(entry.code.Number()) = entry.width;
        const std::string code = std::to_string(entry.code.Number());
        const std::string name = "g" + code;
        differences += code + '/' + name + ' ';
        drawings += '/' + name + ' ' + Reference(WriteDrawing(file, entry, name, pictures));
    }
    const std::string name = "D" + std::to_string(subset.name);
    std::string font = "<</Type/Font/Subtype/Type3/Name/" + name + "/FontDescriptor " +
                       Reference(file.WriteObject("<</Type/FontDescriptor/FontName/" + name +
                                                  DescriptorEntries(font_) + ">>")) +
                       "/FontBBox[0 0 0 0]/FontMatrix[.001 0 0 .001 0 0]"
                       "/Resources<</XObject<<" +
                       pictures + ">>>>/Encoding<</Type/Encoding/Differences[" + differences +
                       "]>>/CharProcs<<" + drawings + ">>/FirstChar 0/LastChar 255/Widths[";
    for (const double width : widths) font += Number(width) + ' ';
    font += "]/ToUnicode " + Reference(WriteToUnicode(file, subset.codes));
    file.WriteObject(subset.object, font + ">>");
}

}  // namespace pdf
