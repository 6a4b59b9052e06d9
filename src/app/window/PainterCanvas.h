#pragma once

#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <unordered_map>

#include "desk/drawing/Canvas.h"
#include "desk/text/Handles.h"

namespace app {

/// Paints a page with Qt, for a printer. The painter's origin is the lower left corner of the
/// sheet, its unit a dot. Letters are set in Qt's font where that is the same file, so that a
/// printed PDF has a text, else painted as outlines.
class PainterCanvas final : public desk::Canvas {
public:
    PainterCanvas(QPainter& painter, double dotsPerInch)
        : painter_(painter), dotsPerPoint_(dotsPerInch / desk::kPointsPerInch) {}

    void Fill(std::span<const desk::PaintBox> boxes, const pdf::Color& color) override;
    void Stroke(const desk::PaintOutline& outline) override;
    void SetTextColor(const pdf::Color& color) override;
    void SetMeaning(const pdf::Meaning&) override {}
    void PartWords() override {}
    void Show(PangoFont* font, const desk::GlyphLine& line,
              const desk::Baseline& baseline) override;
    void FinishGlyphs() override {}

private:
    struct Known {
        desk::GObjectHandle<PangoFont> font;  ///< Held, so that its address is not reused.
        QRawFont same;                        ///< Invalid where Qt has not the same font.
    };

    QRectF Dots(const desk::PaintBox& box) const;
    const QRawFont& FontFor(PangoFont* font);
    void ShowRun(const QRawFont& font, const desk::GlyphLine& line);
    void ShowOutlines(PangoFont* font, const desk::GlyphLine& line);

    QPainter& painter_;
    double dotsPerPoint_;
    QColor color_;
    std::unordered_map<PangoFont*, Known> fonts_;
};

}  // namespace app
