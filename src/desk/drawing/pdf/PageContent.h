#pragma once

#include <optional>
#include <string>

#include "desk/drawing/Canvas.h"
#include "desk/drawing/pdf/FontSet.h"
#include "desk/drawing/pdf/TextContent.h"

namespace desk::pdf {

/// Collects the content stream of a page. The origin is the lower left corner of the sheet.
class PageContent final : public Canvas {
public:
    explicit PageContent(FontSet& fonts) : fonts_(fonts) {}

    void Fill(std::span<const PaintBox> boxes, std::uint32_t color) override;
    void Stroke(const PaintOutline& outline) override;
    void SetTextColor(std::uint32_t color) override { UseFillColor(color); }
    void Show(PangoFont* font, const GlyphLine& line, const Baseline& baseline) override {
        if (!line.glyphs.empty()) texts_.Show(fonts_.Use(font), line, baseline);
    }
    void FinishGlyphs() override {}

    /// Returns the content so far and clears it.
    std::string Take();

private:
    void UseFillColor(std::uint32_t color);
    void UseStrokeColor(std::uint32_t color);
    void AppendBox(const PaintBox& box);

    FontSet& fonts_;
    std::string out_;
    TextContent texts_{out_};
    std::uint32_t fillColor_ = 0;  ///< PDF's initial colour of a page is black.
    std::optional<std::uint32_t> strokeColor_;
};

}  // namespace desk::pdf
