#include <cstdlib>
#include <ctime>
#include <vector>

#include "desk/drawing/Writers.h"
#include "desk/drawing/pdf/PageContent.h"
#include "desk/drawing/pdf/Syntax.h"

namespace desk {
namespace {

using pdf::Reference;

/// Returns an empty text if SOURCE_DATE_EPOCH is not set.
std::string CreationDate() {
    const char* const epoch = std::getenv("SOURCE_DATE_EPOCH");
    if (!epoch || !*epoch) return {};
    char* end = nullptr;
    const std::time_t seconds = std::strtoll(epoch, &end, 10);
    std::tm date{};
    if (*end != '\0' || !gmtime_r(&seconds, &date)) return {};
    char text[32];
    const std::size_t length = std::strftime(text, sizeof text, "D:%Y%m%d%H%M%SZ", &date);
    return {text, length};
}

/// The bookmarks of a file, on one level. Each is written when the next one is known.
class Bookmarks {
public:
    explicit Bookmarks(pdf::ObjectFile& file) : file_(file) {}

    /// Adds a bookmark to a height on a page, in points.
    void Add(const std::string& title, int page, double height) {
        const int number = file_.NewObject();
        if (count_++ == 0) {
            root_ = file_.NewObject();
            first_ = number;
        } else {
            file_.WriteObject(last_, body_ + "/Next " + Reference(number) + ">>");
        }
        body_ = "<</Title" + pdf::TextString(title) + "/Dest[" + Reference(page) + "/XYZ 0 " +
                pdf::Number(height) + " 0]/Parent " + Reference(root_);
        if (last_ != 0) body_ += "/Prev " + Reference(last_);
        last_ = number;
    }

    /// Writes the last bookmark and the root. Returns the root's number; 0 without bookmarks.
    int Write() {
        if (count_ == 0) return 0;
        file_.WriteObject(last_, body_ + ">>");
        file_.WriteObject(root_, "<</Type/Outlines/Count " + std::to_string(count_) + "/First " +
                                     Reference(first_) + "/Last " + Reference(last_) + ">>");
        return root_;
    }

private:
    pdf::ObjectFile& file_;
    int root_ = 0;
    int count_ = 0;
    int first_ = 0;
    int last_ = 0;
    std::string body_;  ///< Of the last bookmark.
};

class PdfWriter final : public PageWriter {
public:
    PdfWriter(const std::string& path, const std::string& title)
        : PageWriter(path, Sheets::Many),
          title_(title),
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
    void EndSheet(const std::string& bookmark) override;
    void Close() override;
    int WriteInfo();

    std::string title_;
    pdf::ObjectFile objects_;
    pdf::FontSet fonts_;
    Bookmarks bookmarks_;
    int catalog_;
    int pageTree_;
    std::vector<int> pages_;  ///< Object numbers of the pages.
    std::unique_ptr<pdf::PageContent> content_;
    double width_ = 0, height_ = 0;  ///< Of the sheet, in points.
};

void PdfWriter::EndSheet(const std::string& bookmark) {
    const int content = objects_.WriteStream("", content_->Take());
    pages_.push_back(objects_.WriteObject(
        "<</Type/Page/Parent " + Reference(pageTree_) + "/MediaBox[0 0 " + pdf::Number(width_) +
        ' ' + pdf::Number(height_) + "]/Contents " + Reference(content) + ">>"));
    if (!bookmark.empty()) bookmarks_.Add(bookmark, pages_.back(), height_);
}

void PdfWriter::Close() {
    std::string tree = "<</Type/Pages/Resources<</Font<<" + fonts_.Write() + ">>>>/Count " +
                       std::to_string(pages_.size()) + "/Kids[";
    for (const int page : pages_) tree += Reference(page) + ' ';
    objects_.WriteObject(pageTree_, tree + "]>>");
    std::string catalog = "<</Type/Catalog/Pages " + Reference(pageTree_);
    if (const int outline = bookmarks_.Write(); outline != 0)
        catalog += "/Outlines " + Reference(outline);
    objects_.WriteObject(catalog_, catalog + ">>");
    objects_.Finish(catalog_, WriteInfo());
}

int PdfWriter::WriteInfo() {
    std::string info = "<</Title" + pdf::TextString(title_) + "/Creator(gazetteer)";
    if (const std::string date = CreationDate(); !date.empty())
        info += "/CreationDate(" + date + ')';
    return objects_.WriteObject(info + ">>");
}

}  // namespace

std::unique_ptr<PageWriter> NewPdfWriter(const std::string& path,
                                         const PageWriterOptions& options) {
    return std::make_unique<PdfWriter>(path, options.title);
}

}  // namespace desk
