#include "desk/drawing/PdfWriter.h"

#include <cairo-pdf.h>
#include <cstdlib>
#include <ctime>

namespace desk {
namespace {

/// ISO 8601, or empty where the environment sets no date. cairo leaves a date out that it cannot
/// read.
std::string CreationDate() {
    const char* const epoch = std::getenv("SOURCE_DATE_EPOCH");
    if (!epoch || !*epoch) return {};
    char* end = nullptr;
    const std::time_t seconds = std::strtoll(epoch, &end, 10);
    std::tm date{};
    if (*end != '\0' || !gmtime_r(&seconds, &date)) return {};
    char text[32];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &date);
    return {text, length};
}

}  // namespace

PdfWriter::PdfWriter(const std::string& path, const std::string& title)
    : PageWriter(path, Sheets::Many),
      surface_(cairo_pdf_surface_create_for_stream(&OutputFile::Write, &File(), kPointsPerInch,
                                                   kPointsPerInch)) {
    File().Check(cairo_surface_status(surface_.get()));
    cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_TITLE, title.c_str());
    cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_CREATOR, "gazetteer");
    cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_CREATE_DATE,
                                   CreationDate().c_str());
}

cairo_surface_t* PdfWriter::BeginSheet(double width, double height) {
    cairo_pdf_surface_set_size(surface_.get(), width, height);
    return surface_.get();
}

void PdfWriter::EndSheet(const std::string& bookmark) {
    if (!bookmark.empty()) {
        const std::string link = "page=" + std::to_string(SheetCount()) + " pos=[0 0]";
        cairo_pdf_surface_add_outline(surface_.get(), CAIRO_PDF_OUTLINE_ROOT, bookmark.c_str(),
                                      link.c_str(), static_cast<cairo_pdf_outline_flags_t>(0));
    }
    cairo_surface_show_page(surface_.get());
    File().Check(cairo_surface_status(surface_.get()));
}

void PdfWriter::Close() {
    cairo_surface_finish(surface_.get());
    File().Check(cairo_surface_status(surface_.get()));
}

}  // namespace desk
