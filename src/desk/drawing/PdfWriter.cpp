#include <vector>

#include "desk/drawing/Writers.h"
#include "host/Failure.h"
#include "pdf/document/Document.h"

namespace desk {
namespace {

/// Paints on a page of a PDF file.
class PdfCanvas final : public Canvas {
public:
    explicit PdfCanvas(pdf::PageContent& page) : page_(page) {}

    void Fill(std::span<const PaintBox> boxes, const pdf::Color& color) override {
        boxes_.clear();
        for (const PaintBox& box : boxes) boxes_.push_back(BoxOf(box));
        page_.Fill(boxes_, color);
    }
    void Stroke(const PaintOutline& outline) override {
        page_.Stroke({BoxOf(outline.box), outline.color, outline.crossed, kLineWidth});
    }
    void SetTextColor(const pdf::Color& color) override { page_.SetTextColor(color); }
    void SetMeaning(const pdf::Meaning& meaning) override { page_.SetMeaning(meaning); }
    void PartWords() override { page_.PartWords(); }
    void Show(PangoFont* font, const GlyphLine& line, const Baseline& baseline) override {
        page_.Show(font, line, baseline);
    }
    void FinishGlyphs() override {}

private:
    static pdf::Box BoxOf(const PaintBox& box) {
        return {box.left, box.top, box.right, box.bottom};
    }

    pdf::PageContent& page_;
    std::vector<pdf::Box> boxes_;  ///< Scratch.
};

class PdfWriter final : public PageWriter, private pdf::Output {
public:
    PdfWriter(const std::string& path, const PageWriterOptions& options)
        : PageWriter(path, Sheets::Many),
          isForPress_(options.press.has_value()),
          document_(*this, {options.title, "gazetteer", options.language, options.firstNumber,
                            options.tags, options.press}) {}

private:
    void Write(std::string_view bytes) override {
        if (!File().Write(bytes)) File().Check();
    }
    Canvas& BeginSheet(double width, double height) override {
        height_ = height;
        canvas_ = std::make_unique<PdfCanvas>(document_.BeginPage(width, height));
        return *canvas_;
    }
    void EndSheet(const std::string& title, std::span<const Bookmark> places) override;
    void Close() override;

    bool isForPress_;
    pdf::Document document_;
    std::unique_ptr<PdfCanvas> canvas_;
    double height_ = 0;  ///< Of the sheet, in points.
};

[[noreturn]] void PassOn(const pdf::Error& error) {
    throw host::Failure(host::kFailureUnspecified, "PdfWriter", error.what());
}

/// Tells the first violation, and what can be done.
std::string ReasonOf(const pdf::Violated& violated, bool isForPress) {
    const pdf::Violation& first = violated.violations.front();
    const bool isFont = first.rule == pdf::Violation::Rule::FontLicence;
    if (isForPress)
        return first.Text() + (isFont ? ", as a file for a press needs; use another font"
                                      : ", which a file for a press must not have");
    return first.Text() +
           (isFont ? ", as a file for archives needs; use another font, or --no-tags if its maker "
                     "permits that"
                   : ", which a file for archives must not have; use --no-tags for any other file");
}

void PdfWriter::EndSheet(const std::string& title, std::span<const Bookmark> places) try {
    std::vector<pdf::Bookmark> marks;
    for (const Bookmark& place : places)
        marks.push_back({place.title, place.height * kPointsPerInch});
    document_.EndPage({title, height_}, marks);
} catch (const pdf::Error& error) {
    PassOn(error);
}

void PdfWriter::Close() try { document_.Finish(); } catch (const pdf::Violated& violated) {
    Refuse(ReasonOf(violated, isForPress_));
} catch (const pdf::Error& error) {
    PassOn(error);
}

}  // namespace

std::unique_ptr<PageWriter> NewPdfWriter(const std::string& path,
                                         const PageWriterOptions& options) {
    return std::make_unique<PdfWriter>(path, options);
}

}  // namespace desk
