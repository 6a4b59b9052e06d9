#include "pdf/content/PageContent.h"

#include <algorithm>
#include <utility>

#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

/// Decimals of box edges, in points.
constexpr int kEdgeDecimals = 3;

/// Begins what means nothing.
constexpr char kArtifact[] = "/Artifact BMC\n";

/// Returns the operator that begins what is no content; null for roles of content.
const char* ArtifactOf(Role role) {
    if (role == Role::Decoration) return kArtifact;
    if (role == Role::PageMatter) return "/Artifact<</Type/Pagination>>BDC\n";
    if (role == Role::PageHead) return "/Artifact<</Type/Pagination/Subtype/Header>>BDC\n";
    if (role == Role::PageFoot) return "/Artifact<</Type/Pagination/Subtype/Footer>>BDC\n";
    return nullptr;
}

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
    if (linkTarget_ != meaning_.target) EndLink();
    const FontUse& use = fonts_.Use(font);
    if (structure_) MarkText(use);
    partsWords_ = false;
    const double right = texts_.Show(use, line, baseline);
    if (meaning_.target) ExtendLink(use, baseline, glyphs::Points(line.glyphs.front().x), right);
}

/// A link has one place for each line.
void PageContent::ExtendLink(const FontUse& font, const glyphs::Baseline& baseline, double left,
                             double right) {
    View place{1e9, 1e9, -1e9, -1e9};
    for (const double x : {left, right})
        for (const double y : {-font.ascent, font.descent}) {
            const auto corner = glyphs::Along(baseline, x, y);
            place.left = std::min(place.left, corner.x);
            place.right = std::max(place.right, corner.x);
            place.bottom = std::min(place.bottom, -corner.y);
            place.top = std::max(place.top, -corner.y);
        }
    if (linkTarget_ == meaning_.target && linkLine_ == baseline.y) {
        linkPlace_.left = std::min(linkPlace_.left, place.left);
        linkPlace_.right = std::max(linkPlace_.right, place.right);
        return;
    }
    EndLink();
    linkTarget_ = meaning_.target;
    linkLine_ = baseline.y;
    linkPlace_ = place;
}

void PageContent::EndLink() {
    if (!linkTarget_) return;
    const int number = file_.NewObject();
    links_.Add(number, *linkTarget_, linkPlace_, structure_ ? structure_->AddLink(number) : -1);
    linkTarget_ = nullptr;
}

/// Marks begin and end inside a text object. A leader parts a name from its references only for
/// those who see it.
void PageContent::MarkText(const FontUse& font) {
    if (textMark_ && *textMark_ == meaning_) {
        if (partsWords_) PartFromNext(font);
        return;
    }
    if (textMark_ && textMark_->role == Role::Name && meaning_.role != Role::Name) {
        const Meaning next = std::exchange(meaning_, *textMark_);
        PartFromNext(font);
        meaning_ = next;
    }
    EndMark();
    textMark_ = meaning_;
    actualText_ = meaning_.actualText;
    textMark_->actualText = actualText_;
    texts_.MarkNext();
}

/// A text that its mark tells is complete.
void PageContent::PartFromNext(const FontUse& font) {
    if (meaning_.actualText.empty()) texts_.AddBlank(font);
}

std::string PageContent::NextMark(std::string_view actualText) {
    if (const char* const artifact = ArtifactOf(meaning_.role))
        return actualText.empty() ? artifact
                                  : "/Artifact<</ActualText" + TextString(actualText) + ">>BDC\n";
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
    EndLink();
    EndMark();
    texts_.End();
    return std::move(out_);
}

}  // namespace pdf
