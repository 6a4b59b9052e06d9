#include "desk/drawing/pdf/PageContent.h"

#include "desk/drawing/pdf/Syntax.h"

namespace desk::pdf {
namespace {

/// Decimals of box edges, in points.
constexpr int kEdgeDecimals = 3;

std::int64_t Edge(double points) {
    return Scaled(points, kEdgeDecimals);
}

/// Appends a colour and one of the operators that set it. Neutral colours are written as grey, so
/// that a press prints black text with black ink alone.
void AppendColor(std::string& out, std::uint32_t color, const char* ofGrey, const char* ofRgb) {
    const auto append = [&](unsigned shift) {
        AppendNumber(out, ((color >> shift) & 0xFF) / 255.0);
        out += ' ';
    };
    const bool isGrey = color == (color & 0xFF) * 0x010101;
    for (const unsigned shift : {0U, 8U, 16U})
        if (shift == 0 || !isGrey) append(shift);
    out += isGrey ? ofGrey : ofRgb;
}

void AppendEdges(std::string& out, std::int64_t first, std::int64_t second) {
    AppendScaled(out, first, kEdgeDecimals);
    out += ' ';
    AppendScaled(out, second, kEdgeDecimals);
    out += ' ';
}

}  // namespace

void PageContent::Fill(std::span<const PaintBox> boxes, std::uint32_t color) {
    texts_.End();
    UseFillColor(color);
    for (const PaintBox& box : boxes) AppendBox(box);
    out_ += "f\n";
}

void PageContent::Stroke(const PaintOutline& outline) {
    texts_.End();
    UseStrokeColor(outline.color);
    const PaintBox& box = outline.box;
    AppendBox(box);
    if (outline.crossed) {
        AppendEdges(out_, Edge(box.left), -Edge(box.top));
        out_ += "m ";
        AppendEdges(out_, Edge(box.right), -Edge(box.bottom));
        out_ += "l ";
        AppendEdges(out_, Edge(box.left), -Edge(box.bottom));
        out_ += "m ";
        AppendEdges(out_, Edge(box.right), -Edge(box.top));
        out_ += "l ";
    }
    out_ += "S\n";
}

// Computes sizes from rounded edges, so that adjacent boxes still meet.
void PageContent::AppendBox(const PaintBox& box) {
    AppendEdges(out_, Edge(box.left), -Edge(box.bottom));
    AppendEdges(out_, Edge(box.right) - Edge(box.left), Edge(box.bottom) - Edge(box.top));
    out_ += "re\n";
}

void PageContent::UseFillColor(std::uint32_t color) {
    if (color == fillColor_) return;
    fillColor_ = color;
    AppendColor(out_, color, "g\n", "rg\n");
}

void PageContent::UseStrokeColor(std::uint32_t color) {
    if (color == strokeColor_) return;
    if (!strokeColor_) {
        AppendNumber(out_, kLineWidth);
        out_ += " w\n";
    }
    strokeColor_ = color;
    AppendColor(out_, color, "G\n", "RG\n");
}

std::string PageContent::Take() {
    texts_.End();
    return std::move(out_);
}

}  // namespace desk::pdf
