#pragma once

#include <optional>
#include <string>

#include "pdf/content/Shapes.h"
#include "pdf/content/TextContent.h"
#include "pdf/fonts/FontSet.h"
#include "pdf/structure/StructureTree.h"

namespace pdf {

/// Collects the content stream of a page. The origin is the lower left corner of the page. With a
/// structure, texts are marked as content of its elements, or as artifacts, as are all shapes.
class PageContent {
public:
    /// The structure may be null.
    PageContent(FontSet& fonts, StructureTree* structure) : fonts_(fonts), structure_(structure) {}

    /// Colours are 0xBBGGRR.
    void Fill(std::span<const Box> boxes, std::uint32_t color);
    void Stroke(const Outline& outline);
    /// Sets the colour of the following texts.
    void SetTextColor(std::uint32_t color) { UseFillColor(color); }
    /// Sets the meaning of the following texts. Those of the same meaning that follow each other
    /// are one piece of content.
    void SetMeaning(const Meaning& meaning) { meaning_ = meaning; }
    /// The next text begins a line, or is another one than the last. Inside a piece of content a
    /// blank parts them.
    void BeginLine() { beginsLine_ = true; }
    void Show(PangoFont* font, const glyphs::GlyphLine& line, const glyphs::Baseline& baseline);

    /// Returns the content so far and clears it.
    std::string Take();

private:
    void UseFillColor(std::uint32_t color);
    void UseStroke(const Outline& outline);
    void AppendBox(const Box& box);
    void BeginShapes();
    void MarkText(const FontUse& font);
    void EndMark();

    FontSet& fonts_;
    StructureTree* structure_;
    std::string out_;
    TextContent texts_{out_};
    std::uint32_t fillColor_ = 0;  ///< PDF's initial colour of a page is black.
    std::optional<std::uint32_t> strokeColor_;
    double lineWidth_ = 1;  ///< PDF's initial width.
    Meaning meaning_;
    bool inText_ = false;  ///< Text is being shown, not shapes.
    bool beginsLine_ = false;
    bool needsBlank_ = false;        ///< The last text ends in a word.
    std::optional<Meaning> marked_;  ///< Of the open mark.
};

}  // namespace pdf
