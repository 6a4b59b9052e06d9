#include <vector>

#include "desk/drawing/Writers.h"
#include "desk/drawing/pdf/Bookmarks.h"
#include "desk/drawing/pdf/Metadata.h"
#include "desk/drawing/pdf/PageContent.h"
#include "desk/drawing/pdf/Syntax.h"

namespace desk {
namespace {

using pdf::Reference;

class PdfWriter final : public PageWriter {
public:
    PdfWriter(const std::string& path, const PageWriterOptions& options)
        : PageWriter(path, Sheets::Many),
          options_(options),
          objects_(File()),
          fonts_(objects_),
          bookmarks_(objects_),
          catalog_(objects_.NewObject()),
          pageTree_(objects_.NewObject()) {}

private:
    Canvas& BeginSheet(double width, double height) override {
        width_ = width;
        height_ = height;
        content_ = std::make_unique<pdf::PageContent>(fonts_);
        return *content_;
    }
    void EndSheet(const std::string& title, std::span<const Bookmark> places) override;
    void Close() override;

    PageWriterOptions options_;
    pdf::ObjectFile objects_;
    pdf::FontSet fonts_;
    pdf::Bookmarks bookmarks_;
    int catalog_;
    int pageTree_;
    std::vector<int> pages_;  ///< Object numbers of the pages.
    std::unique_ptr<pdf::PageContent> content_;
    double width_ = 0, height_ = 0;  ///< Of the sheet, in points.
};

void PdfWriter::EndSheet(const std::string& title, std::span<const Bookmark> places) {
    const int content = objects_.WriteStream("", content_->Take());
    pages_.push_back(objects_.WriteObject(
        "<</Type/Page/Parent " + Reference(pageTree_) + "/MediaBox[0 0 " + pdf::Number(width_) +
        ' ' + pdf::Number(height_) + "]/Contents " + Reference(content) + ">>"));
    if (!title.empty()) bookmarks_.Add({title, height_ / kPointsPerInch}, places, pages_.back());
}

void PdfWriter::Close() {
    std::string tree = "<</Type/Pages/Resources<</Font<<" + fonts_.Write() + ">>>>/Count " +
                       std::to_string(pages_.size()) + "/Kids[";
    for (const int page : pages_) tree += Reference(page) + ' ';
    objects_.WriteObject(pageTree_, tree + "]>>");
    std::string catalog = "<</Type/Catalog/Pages " + Reference(pageTree_);
    if (const int outline = bookmarks_.Write(); outline != 0)
        catalog += "/Outlines " + Reference(outline);
    catalog += "/Metadata " + Reference(pdf::WriteXmp(objects_, options_.title));
    if (!options_.language.empty()) catalog += "/Lang" + pdf::TextString(options_.language);
    if (options_.firstNumber != 1)
        catalog +=
            "/PageLabels<</Nums[0<</S/D/St " + std::to_string(options_.firstNumber) + ">>]>>";
    objects_.WriteObject(catalog_, catalog + ">>");
    objects_.Finish(catalog_, pdf::WriteInfo(objects_, options_.title));
}

}  // namespace

std::unique_ptr<PageWriter> NewPdfWriter(const std::string& path,
                                         const PageWriterOptions& options) {
    return std::make_unique<PdfWriter>(path, options);
}

}  // namespace desk
