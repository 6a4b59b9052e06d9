#include "desk/drawing/PageWriter.h"

#include <filesystem>

#include "desk/drawing/PdfWriter.h"
#include "desk/drawing/PngWriter.h"
#include "desk/drawing/SvgWriter.h"
#include "desk/unicode/FoldCase.h"
#include "host/Failure.h"

namespace desk {
namespace {

std::string LowerEnding(const std::string& path) {
    return FoldCase(std::filesystem::path(path).extension().string());
}

}  // namespace

void PageWriter::BeginPage(double width, double height) {
    if (++sheets_ > 1 && most_ == Sheets::One) Refuse("it can hold one page only");
    sheet_ = &BeginSheet(width * kPointsPerInch, height * kPointsPerInch);
}

void PageWriter::EndPage(const std::string& bookmark) {
    sheet_ = nullptr;
    EndSheet(bookmark);
}

void PageWriter::Complete() {
    sheet_ = nullptr;
    if (sheets_ == 0) Refuse("there is no page");
    Close();
    file_.Complete();
}

void PageWriter::Refuse(const std::string& reason) const {
    throw host::Failure(host::kFailureUnspecified, "PageWriter",
                        "The file \"" + file_.Path() + "\" cannot be written: " + reason + ".");
}

std::unique_ptr<PageWriter> OpenPageWriter(const std::string& path,
                                           const PageWriterOptions& options) {
    const std::string ending = LowerEnding(path);
    if (ending == ".pdf") return std::make_unique<PdfWriter>(path, options.title);
    if (ending == ".svg") return std::make_unique<SvgWriter>(path);
    if (ending == ".png") return std::make_unique<PngWriter>(path, options.dotsPerInch);
    throw host::Failure(
        host::kFailureUnspecified, "OpenPageWriter",
        "The file \"" + path + "\" cannot be written: its name must end in .pdf, .svg or .png.");
}

}  // namespace desk
