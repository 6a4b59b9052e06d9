#include "desk/drawing/PdfWriter.h"

#include <cstdlib>
#include <ctime>

#include "desk/drawing/pdf/Numbers.h"
#include "desk/drawing/pdf/Strings.h"

namespace desk {
namespace {

/// Empty where the environment sets no date.
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

}  // namespace

PdfWriter::PdfWriter(const std::string& path, const std::string& title)
    : PageWriter(path, Sheets::Many),
      title_(title),
      objects_(File()),
      fonts_(objects_),
      bookmarks_(objects_),
      catalog_(objects_.NewObject()),
      pageTree_(objects_.NewObject()) {}

Canvas& PdfWriter::BeginSheet(double width, double height) {
    width_ = width;
    height_ = height;
    content_ = std::make_unique<pdf::PageContent>(fonts_);
    return *content_;
}

void PdfWriter::EndSheet(const std::string& bookmark) {
    const int content = objects_.WriteStream("", content_->Take());
    std::string page = "<</Type/Page/Parent ";
    pdf::AppendReference(page, pageTree_);
    page += "/MediaBox[0 0 ";
    pdf::AppendNumber(page, width_);
    page += ' ';
    pdf::AppendNumber(page, height_);
    page += "]/Contents ";
    pdf::AppendReference(page, content);
    pages_.push_back(objects_.WriteObject(page + ">>"));
    if (!bookmark.empty()) bookmarks_.Add(bookmark, pages_.back(), height_);
}

void PdfWriter::Close() {
    std::string tree = "<</Type/Pages/Resources<</Font<<" + fonts_.Write(objects_) + ">>>>/Count ";
    pdf::AppendInteger(tree, std::ssize(pages_));
    tree += "/Kids[";
    for (const int page : pages_) {
        pdf::AppendReference(tree, page);
        tree += ' ';
    }
    objects_.WriteObject(pageTree_, tree + "]>>");
    std::string catalog = "<</Type/Catalog/Pages ";
    pdf::AppendReference(catalog, pageTree_);
    if (const int outline = bookmarks_.Write(); outline != 0) {
        catalog += "/Outlines ";
        pdf::AppendReference(catalog, outline);
    }
    objects_.WriteObject(catalog_, catalog + ">>");
    objects_.Finish(catalog_, WriteInfo());
}

int PdfWriter::WriteInfo() {
    std::string info = "<</Title";
    pdf::AppendTextString(info, title_);
    info += "/Creator(gazetteer)";
    if (const std::string date = CreationDate(); !date.empty())
        info += "/CreationDate(" + date + ')';
    return objects_.WriteObject(info + ">>");
}

}  // namespace desk
