#pragma once

#include <optional>
#include <string>

#include "pdf/color/PageColors.h"
#include "pdf/content/Shapes.h"
#include "pdf/content/TextContent.h"
#include "pdf/fonts/FontSet.h"
#include "pdf/navigation/Links.h"
#include "pdf/structure/StructureTree.h"

namespace pdf {

/// Collects the content stream of a page. The origin is the lower left corner of the page. With a
/// structure, texts are marked as content of its elements, or as artifacts, as are all shapes.
class PageContent : private Marker {
public:
    /// The structure may be null.
    PageContent(ObjectFile& file, FontSet& fonts, PageColors& colors, Links& links,
                StructureTree* structure)
        : file_(file),
          fonts_(fonts),
          colors_(colors),
          links_(links),
          structure_(structure),
          texts_(out_, structure ? this : nullptr) {
        if (colors.BeginWithBlack()) fillColor_ = Color();
    }

    void Fill(std::span<const Box> boxes, const Color& color);
    void Stroke(const Outline& outline);
    /// Sets the colour of the following texts.
    void SetTextColor(const Color& color);
    /// Sets the meaning of the following texts. Those of the same meaning that follow each other
    /// are one piece of content.
    void SetMeaning(const Meaning& meaning) { meaning_ = meaning; }
    /// The next text does not go on with the last word. Inside a piece of content a blank parts
    /// them.
    void PartWords() { partsWords_ = true; }
    void Show(PangoFont* font, const glyphs::GlyphLine& line, const glyphs::Baseline& baseline);

    /// Returns the content so far and clears it.
    std::string Take();

private:
    void UseFillColor(const Color& color);
    void UseOverprint(bool overprints);
    void UseStroke(const Outline& outline);
    void AppendBox(const Box& box);
    void BeginShapes();
    void MarkText(const FontUse& font);
    void PartFromNext(const FontUse& font);
    void EndMark();
    void ExtendLink(const FontUse& font, const glyphs::Baseline& baseline, double left,
                    double right);
    void EndLink();
    std::string NextMark(std::string_view actualText) override;
    bool TellWholeText() const override { return !meaning_.actualText.empty(); }

    ObjectFile& file_;
    FontSet& fonts_;
    PageColors& colors_;
    Links& links_;
    StructureTree* structure_;
    std::string out_;
    TextContent texts_;
    std::optional<Color> fillColor_, strokeColor_;  ///< Nothing: not set yet.
    bool overprints_ = false;
    double lineWidth_ = 1;  ///< PDF's initial width.
    Meaning meaning_;
    bool partsWords_ = false;
    const Target* linkTarget_ = nullptr;  ///< Of the link around the last texts.
    View linkPlace_;
    double linkLine_ = 0;              ///< Y of its baseline.
    std::optional<Meaning> textMark_;  ///< Meaning of the marked text.
    std::string actualText_;           ///< Of textMark_.
    bool marksShapes_ = false;
};

}  // namespace pdf
