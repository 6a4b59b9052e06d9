#include "desk/drawing/PageWriter.h"

#include <algorithm>
#include <filesystem>

#include "characters/FoldCase.h"
#include "desk/drawing/Writers.h"
#include "host/Failure.h"

namespace desk {
void PageWriter::BeginPage(double width, double height) {
    if (++sheets_ > 1 && most_ == Sheets::One) Refuse("it can hold one page only");
    sheet_ = &BeginSheet(width * kPointsPerInch, height * kPointsPerInch);
}

void PageWriter::EndPage(const std::string& title, std::span<const Bookmark> places) {
    sheet_ = nullptr;
    EndSheet(title, places);
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

std::span<const PageFormat> PageFormats() {
    static constexpr PageFormat kFormats[] = {{"PDF document", ".pdf", true, &NewPdfWriter},
                                              {"PNG images", ".png", false, &NewPngWriter},
                                              {"SVG drawings", ".svg", false, &NewSvgWriter}};
    return kFormats;
}

const PageFormat* FormatOf(const std::string& path) {
    const auto formats = PageFormats();
    const std::string ending =
        characters::FoldCase(std::filesystem::path(path).extension().string());
    const auto format = std::ranges::find(formats, ending, &PageFormat::ending);
    return format == formats.end() ? nullptr : &*format;
}

std::string PageEndings() {
    std::string endings;
    const auto formats = PageFormats();
    for (std::size_t i = 0; i < formats.size(); ++i) {
        if (i > 0) endings += i + 1 < formats.size() ? ", " : " or ";
        endings += formats[i].ending;
    }
    return endings;
}

std::unique_ptr<PageWriter> OpenPageWriter(const std::string& path,
                                           const PageWriterOptions& options) {
    if (const auto* format = FormatOf(path)) return format->open(path, options);
    throw host::Failure(
        host::kFailureUnspecified, "OpenPageWriter",
        "The file \"" + path + "\" cannot be written: its name must end in " + PageEndings() + ".");
}

}  // namespace desk
