#include "desk/drawing/pdf/DrawnFont.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <pango/pangocairo.h>
#include <span>

#include "desk/devices/CairoHandles.h"
#include "desk/drawing/pdf/GlyphPicture.h"
#include "desk/drawing/pdf/Numbers.h"

namespace desk::pdf {
namespace {

using PathHandle = std::unique_ptr<cairo_path_t, Releaser<cairo_path_destroy>>;

int LogicalWidth(PangoFont* font, PangoGlyph glyph) {
    PangoRectangle logical{};
    pango_font_get_glyph_extents(font, glyph, nullptr, &logical);
    return logical.width;
}

/// The outline of a glyph on its origin, in points, Y downward. It is made at a larger scale, since
/// cairo counts in 256ths.
PathHandle OutlineOf(PangoFont* font, PangoGlyph glyph, double scale) {
    const CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1));
    const CairoContext context(cairo_create(surface.get()));
    cairo_scale(context.get(), scale, scale);
    PangoGlyphInfo info{};
    info.glyph = glyph;
    info.geometry.width = LogicalWidth(font, glyph);  // The box of an unknown one is in its middle.
    int cluster = 0;
    PangoGlyphString string{1, &info, &cluster, 0};
    cairo_move_to(context.get(), 0, 0);
    pango_cairo_glyph_string_path(context.get(), font, &string);
    return PathHandle(cairo_copy_path(context.get()));
}

/// An outline, in thousandths of the font's size, Y upward, and the box around it.
class Outline {
public:
    Outline(const cairo_path_t& path, double scale) {
        const std::span all(path.data, static_cast<std::size_t>(path.num_data));
        for (std::size_t i = 0; i < all.size();) {
            const auto length = static_cast<std::size_t>(all[i].header.length);
            for (const auto& place : all.subspan(i + 1, length - 1))
                AddPoint(place.point.x * scale, -place.point.y * scale);
            constexpr std::array kOperators = {"m\n", "l\n", "c\n", "h\n"};
            operators_ += kOperators.at(all[i].header.type);
            i += length;
        }
    }

    /// With a width, as the file has it.
    std::string Stream(double width) const {
        std::string stream;
        for (const double value : {width, 0.0, std::floor(left_), std::floor(bottom_),
                                   std::ceil(right_), std::ceil(top_)}) {
            AppendNumber(stream, value);
            stream += ' ';
        }
        return stream + "d1\n" + operators_ + "f";
    }

private:
    void AddPoint(double x, double y) {
        AppendNumber(operators_, x, 1);
        operators_ += ' ';
        AppendNumber(operators_, y, 1);
        operators_ += ' ';
        left_ = std::min(left_, x);
        right_ = std::max(right_, x);
        bottom_ = std::min(bottom_, y);
        top_ = std::max(top_, y);
    }

    std::string operators_;
    double left_ = 0, bottom_ = 0, right_ = 0, top_ = 0;
};

std::string NameOf(const CodeTable::Entry& entry) {
    return std::string("g").append(std::to_string(entry.code.Number()));
}

}  // namespace

DrawnFont::DrawnFont(PangoFont* font, double points, Drawings drawings, FontNumbers& numbers)
    : Typeface(CodeTable::Lengths::One, numbers),
      font_(font),
      drawings_(drawings),
      thousandth_(points / 1000) {}

int DrawnFont::WidthOf(hb_codepoint_t glyph) {
    return static_cast<int>(std::lround(LogicalWidth(font_, glyph) / (PANGO_SCALE * thousandth_)));
}

void DrawnFont::Write(ObjectFile& file) {
    for (const Subset& subset : Subsets()) WriteSubset(file, subset);
}

/// Writes what draws a glyph. Returns the number of its object, and adds pictures that it shows.
int DrawnFont::WriteDrawing(ObjectFile& file, const CodeTable::Entry& entry,
                            std::string& pictures) const {
    if (drawings_ == Drawings::Outlines) {
        const PathHandle path = OutlineOf(font_, entry.glyph, 1 / thousandth_);
        return file.WriteStream("", Outline(*path, 1 / thousandth_).Stream(entry.width));
    }
    const GlyphPicture picture(font_, entry.glyph, thousandth_);
    const std::string name = NameOf(entry);
    pictures += '/' + name + ' ';
    AppendReference(pictures, picture.WritePixels(file));
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
        AppendInteger(differences, entry.code.Number());
        differences += '/' + NameOf(entry) + ' ';
        drawings += '/' + NameOf(entry) + ' ';
        AppendReference(drawings, WriteDrawing(file, entry, pictures));
    }
    std::string font =
        "<</Type/Font/Subtype/Type3/FontBBox[0 0 0 0]/FontMatrix[.001 0 0 .001 0 0]"
        "/Resources<</XObject<<" +
        pictures + ">>>>/Encoding<</Type/Encoding/Differences[" + differences + "]>>/CharProcs<<" +
        drawings + ">>/FirstChar 0/LastChar 255/Widths[";
    for (const double width : widths) {
        AppendNumber(font, width);
        font += ' ';
    }
    font += "]/ToUnicode ";
    AppendReference(font, WriteToUnicode(file, subset.codes));
    file.WriteObject(subset.object, font + ">>");
}

}  // namespace desk::pdf
