#include "app/window/PainterCanvas.h"

#include <QGlyphRun>
#include <algorithm>
#include <pango/pangocairo.h>
#include <pango/pangofc-font.h>

namespace app {
namespace {

QColor ColorOf(const pdf::Color& color) {
    const std::uint32_t bgr = color.rgb;
    return {static_cast<int>(bgr & 0xFF), static_cast<int>(bgr >> 8 & 0xFF),
            static_cast<int>(bgr >> 16 & 0xFF)};
}

// Calls with each glyph and its place right of and below the start of the baseline, in points.
void EachGlyph(const desk::GlyphLine& line, const auto& show) {
    for (const desk::Glyph& glyph : line.glyphs)
        for (unsigned i = 0; i < glyph.count; ++i)
            show(glyph.id, desk::Points(glyph.x + desk::GlyphUnits{glyph.step} * i),
                 desk::Points(glyph.y));
}

bool IsUnknown(hb_codepoint_t glyph) {
    return (glyph & PANGO_GLYPH_UNKNOWN_FLAG) != 0;
}

// Returns whether letters are the font file's own: upright, or slanted in the file, not emboldened,
// and of the default design.
bool IsPlain(PangoFont* font) {
    cairo_matrix_t matrix;
    cairo_scaled_font_get_font_matrix(pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font)),
                                      &matrix);
    FcBool bold = FcFalse;
    FcPatternGetBool(pango_fc_font_get_pattern(PANGO_FC_FONT(font)), FC_EMBOLDEN, 0, &bold);
    unsigned axes = 0;
    hb_font_get_var_coords_normalized(pango_font_get_hb_font(font), &axes);
    return matrix.xy == 0 && matrix.yx == 0 && matrix.xx == matrix.yy && !bold && axes == 0;
}

// The checksums in a font's header tell whether two files are the same font.
bool HasSameTable(PangoFont* font, const QRawFont& other, const char* table) {
    const auto tag = hb_tag_from_string(table, -1);
    const desk::BlobHandle blob(
        hb_face_reference_table(hb_font_get_face(pango_font_get_hb_font(font)), tag));
    unsigned size = 0;
    const char* const bytes = hb_blob_get_data(blob.get(), &size);
    return size > 0 && other.fontTable(table) == QByteArray(bytes, static_cast<qsizetype>(size));
}

// Returns Qt's font if it is the same, else an invalid one.
QRawFont SameFont(PangoFont* font, double dotsPerPoint) {
    if (!IsPlain(font)) return {};
    const desk::FontDescriptionHandle description(pango_font_describe(font));
    QFont wanted(QString::fromUtf8(pango_font_description_get_family(description.get())));
    wanted.setBold(pango_font_description_get_weight(description.get()) >= PANGO_WEIGHT_BOLD);
    wanted.setItalic(pango_font_description_get_style(description.get()) != PANGO_STYLE_NORMAL);
    wanted.setHintingPreference(QFont::PreferNoHinting);
    QRawFont raw = QRawFont::fromFont(wanted);
    if (!HasSameTable(font, raw, "head") || !HasSameTable(font, raw, "name")) return {};
    const double points =
        static_cast<double>(pango_font_description_get_size(description.get())) / PANGO_SCALE;
    raw.setPixelSize(points * dotsPerPoint);
    return raw;
}

QPainterPath PathOf(const cairo_path_t& outlines, double dotsPerPoint) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (int i = 0; i < outlines.num_data; i += outlines.data[i].header.length) {
        const auto* const data = &outlines.data[i];
        const auto point = [&](int n) {
            return QPointF(data[n].point.x, data[n].point.y) * dotsPerPoint;
        };
        if (data->header.type == CAIRO_PATH_MOVE_TO) path.moveTo(point(1));
        if (data->header.type == CAIRO_PATH_LINE_TO) path.lineTo(point(1));
        if (data->header.type == CAIRO_PATH_CURVE_TO) path.cubicTo(point(1), point(2), point(3));
        if (data->header.type == CAIRO_PATH_CLOSE_PATH) path.closeSubpath();
    }
    return path;
}

void AddGlyph(cairo_t* context, PangoFont* font, hb_codepoint_t id, double x, double y) {
    if (!IsUnknown(id)) {
        const cairo_glyph_t glyph{id, x, y};
        return cairo_glyph_path(context, &glyph, 1);
    }
    PangoGlyphInfo box{};
    box.glyph = id;
    PangoRectangle logical{};
    pango_font_get_glyph_extents(font, id, nullptr, &logical);
    box.geometry.width = logical.width;
    int cluster = 0;
    PangoGlyphString boxes{1, &box, &cluster, 0};
    cairo_move_to(context, x, y);
    pango_cairo_glyph_string_path(context, font, &boxes);
}

}  // namespace

QRectF PainterCanvas::Dots(const desk::PaintBox& box) const {
    return {QPointF(box.left, box.top) * dotsPerPoint_,
            QPointF(box.right, box.bottom) * dotsPerPoint_};
}

void PainterCanvas::Fill(std::span<const desk::PaintBox> boxes, const pdf::Color& color) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const auto& box : boxes) path.addRect(Dots(box));
    painter_.fillPath(path, ColorOf(color));
}

void PainterCanvas::Stroke(const desk::PaintOutline& outline) {
    const QRectF box = Dots(outline.box);
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(ColorOf(outline.color), desk::kLineWidth * dotsPerPoint_, Qt::SolidLine,
                         Qt::FlatCap, Qt::MiterJoin));
    painter_.drawRect(box);
    if (!outline.crossed) return;
    painter_.drawLine(box.topLeft(), box.bottomRight());
    painter_.drawLine(box.bottomLeft(), box.topRight());
}

void PainterCanvas::SetTextColor(const pdf::Color& color) {
    color_ = ColorOf(color);
}

const QRawFont& PainterCanvas::FontFor(PangoFont* font) {
    Known& known = fonts_[font];
    if (!known.font) {
        known.font.reset(static_cast<PangoFont*>(g_object_ref(font)));
        known.same = SameFont(font, dotsPerPoint_);
    }
    return known.same;
}

void PainterCanvas::Show(PangoFont* font, const desk::GlyphLine& line,
                         const desk::Baseline& baseline) {
    painter_.save();
    painter_.translate(baseline.x * dotsPerPoint_, baseline.y * dotsPerPoint_);
    painter_.rotate(-baseline.angle);
    const QRawFont& same = FontFor(font);
    const bool known = std::ranges::none_of(
        line.glyphs, [](const desk::Glyph& glyph) { return IsUnknown(glyph.id); });
    if (same.isValid() && known)
        ShowRun(same, line);
    else
        ShowOutlines(font, line);
    painter_.restore();
}

void PainterCanvas::ShowRun(const QRawFont& font, const desk::GlyphLine& line) {
    QList<quint32> glyphs;
    QList<QPointF> places;
    EachGlyph(line, [&](hb_codepoint_t id, double x, double y) {
        glyphs << id;
        places << QPointF(x, y) * dotsPerPoint_;
    });
    QGlyphRun run;
    run.setRawFont(font);
    run.setGlyphIndexes(glyphs);
    run.setPositions(places);
    painter_.setPen(color_);
    painter_.drawGlyphRun({}, run);
}

void PainterCanvas::ShowOutlines(PangoFont* font, const desk::GlyphLine& line) {
    const desk::CairoSurface surface(cairo_recording_surface_create(CAIRO_CONTENT_ALPHA, nullptr));
    const desk::CairoContext context(cairo_create(surface.get()));
    // Cairo rounds to 1/256 of the unit of the surface, here of a dot.
    cairo_scale(context.get(), dotsPerPoint_, dotsPerPoint_);
    cairo_set_scaled_font(context.get(), pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font)));
    EachGlyph(line, [&](hb_codepoint_t id, double x, double y) {
        AddGlyph(context.get(), font, id, x, y);
    });
    const std::unique_ptr<cairo_path_t, desk::Releaser<cairo_path_destroy>> path(
        cairo_copy_path(context.get()));
    painter_.fillPath(PathOf(*path, dotsPerPoint_), color_);
}

}  // namespace app
