#include "pdf/content/PageContent.h"

#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

/// Decimals of box edges, in points.
constexpr int kEdgeDecimals = 3;

/// Begins what means nothing.
constexpr char kArtifact[] = "/Artifact BMC\n";

std::int64_t Edge(double points) {
    return Scaled(points, kEdgeDecimals);
}

void AppendEdges(std::string& out, std::int64_t first, std::int64_t second) {
    AppendScaled(out, first, kEdgeDecimals);
    out += ' ';
    AppendScaled(out, second, kEdgeDecimals);
    out += ' ';
}

}  // namespace

void PageContent::Fill(std::span<const Box> boxes, const Color& color) {
    BeginShapes();
    UseOverprint(false);
    UseFillColor(color);
    for (const Box& box : boxes) AppendBox(box);
    out_ += "f\n";
}

void PageContent::Stroke(const Outline& outline) {
    BeginShapes();
    UseStroke(outline);
    const Box& box = outline.box;
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
void PageContent::AppendBox(const Box& box) {
    AppendEdges(out_, Edge(box.left), -Edge(box.bottom));
    AppendEdges(out_, Edge(box.right) - Edge(box.left), Edge(box.bottom) - Edge(box.top));
    out_ += "re\n";
}

void PageContent::SetTextColor(const Color& color) {
    UseOverprint(colors_.Overprints(color));
    UseFillColor(color);
}

void PageContent::UseFillColor(const Color& color) {
    if (color == fillColor_) return;
    fillColor_ = color;
    colors_.Append(out_, color, PageColors::Use::Fill);
}

void PageContent::UseOverprint(bool overprints) {
    if (overprints == overprints_) return;
    overprints_ = overprints;
    PageColors::AppendOverprint(out_, overprints);
}

void PageContent::UseStroke(const Outline& outline) {
    if (outline.width != lineWidth_) {
        lineWidth_ = outline.width;
        AppendNumber(out_, lineWidth_);
        out_ += " w\n";
    }
    UseOverprint(colors_.Overprints(outline.color));
    if (outline.color == strokeColor_) return;
    strokeColor_ = outline.color;
    colors_.Append(out_, outline.color, PageColors::Use::Stroke);
}

void PageContent::Show(PangoFont* font, const glyphs::GlyphLine& line,
                       const glyphs::Baseline& baseline) {
    if (line.glyphs.empty()) return;
    const FontUse& use = fonts_.Use(font);
    if (structure_) MarkText(use);
    partsWords_ = false;
    texts_.Show(use, line, baseline);
}

/// Marks begin and end inside a text object.
void PageContent::MarkText(const FontUse& font) {
    if (textMark_ && *textMark_ == meaning_) {
        if (partsWords_) texts_.AddBlank(font);
        return;
    }
    EndMark();
    textMark_ = meaning_;
    texts_.MarkNext();
}

std::string PageContent::NextMark(std::string_view actualText) {
    if (meaning_.role == Role::Decoration) return kArtifact;
    if (meaning_.role == Role::PageMatter) return "/Artifact<</Type/Pagination>>BDC\n";
    std::string mark = actualText.empty() ? "/P<</MCID " : "/Span<</MCID ";
    AppendInteger(mark, structure_->Add(meaning_));
    if (!actualText.empty()) mark += "/ActualText" + TextString(actualText);
    return mark + ">>BDC\n";
}

void PageContent::EndMark() {
    texts_.EndMark();
    textMark_.reset();
    if (marksShapes_) out_ += "EMC\n";
    marksShapes_ = false;
}

void PageContent::BeginShapes() {
    if (textMark_) EndMark();
    texts_.End();
    if (!structure_ || marksShapes_) return;
    marksShapes_ = true;
    out_ += kArtifact;
}

std::string PageContent::Take() {
    EndMark();
    texts_.End();
    return std::move(out_);
}

}  // namespace pdf
