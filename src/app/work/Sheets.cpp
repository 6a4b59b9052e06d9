#include "app/work/Sheets.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <sys/resource.h>

#include "app/work/Errors.h"
#include "app/work/Furniture.h"
#include "desk/drawing/ElementPainter.h"
#include "desk/drawing/PageWriter.h"
#include "support/Conversions.h"
#include "support/Text.h"

namespace app {
namespace {

std::string LowerEnding(const std::string& path) {
    std::string ending = std::filesystem::path(path).extension().string();
    std::ranges::transform(ending, ending.begin(), [](unsigned char c) {
        return static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
    });
    return ending;
}

// The number printed on a page's sheet: counted on from the start of the gazetteer's own section
// where it stands in a map book.
std::string SheetNumber(Work& work, std::int32_t page) {
    auto& host = work.Host();
    const auto context = host.NewLayoutContext();
    const auto key = context->CurrentTemplateKey();
    if (std::holds_alternative<host::Empty>(key)) return std::to_string(page);
    const auto book = host.NewMapBook();
    const std::string section = book->TemplateSection(gazetteer::ToText(key, host.Locale()));
    const auto start = gazetteer::ToLong(book->SectionStartPage(section), host.Locale());
    return std::to_string(start + page - 1);
}

void PaintSheet(Work& work, desk::PageWriter& writer, std::int32_t page) {
    LabelSheet(work, page);
    auto& document = work.TheDesk().CurrentDocument();
    writer.BeginPage(document.pageWidth, document.pageHeight);
    desk::ElementPainter painter(*work.TheDesk().Text());
    for (const auto& element : document.elements) painter.Paint(writer.Sheet(), element);
    const auto name = work.Manager().PageName(page);
    writer.EndPage(gazetteer::WithoutOuterBlanks(gazetteer::ToText(name, work.Host().Locale())));
}

void DrawSheet(Work& work, desk::PageWriter& writer, std::int32_t page,
               const SheetListener& before) {
    if (before) before(page);
    work.Manager().SetIndexToPageNumber(page);
    work.CheckNothingFailed();
    PaintSheet(work, writer, page);
}

std::unique_ptr<desk::PageWriter> OpenWriter(Work& work, const std::string& path) {
    return desk::OpenPageWriter(path, {.title = work.TheDesk().CurrentDocument().title});
}

void WritePdf(Work& work, const std::string& path, const PageRange& pages,
              const SheetListener& before) {
    const auto writer = OpenWriter(work, path);
    for (std::int32_t page = pages.first; page <= pages.last; ++page)
        DrawSheet(work, *writer, page, before);
    writer->Finish();
}

// As many open files as the system grants this process without asking anyone.
void AllowManyFiles() {
    rlimit files{};
    if (::getrlimit(RLIMIT_NOFILE, &files) != 0) return;
    files.rlim_cur = files.rlim_max;
    ::setrlimit(RLIMIT_NOFILE, &files);
}

// The files take their places together once all are complete, so that a failure leaves those of an
// earlier export as they were.
void WriteNumberedFiles(Work& work, const std::string& path, const PageRange& pages,
                        const SheetListener& before) {
    AllowManyFiles();
    std::vector<std::unique_ptr<desk::PageWriter>> sheets;
    for (std::int32_t page = pages.first; page <= pages.last; ++page) {
        sheets.push_back(OpenWriter(work, NumberedPath(path, page)));
        DrawSheet(work, *sheets.back(), page, before);
        sheets.back()->Complete();
    }
    for (const auto& sheet : sheets) sheet->Place();
}

}  // namespace

std::string NumberedPath(const std::string& path, std::int32_t page) {
    const std::filesystem::path whole = path;
    return (whole.parent_path() /
            (whole.stem().string() + '-' + std::to_string(page) + whole.extension().string()))
        .string();
}

void CheckOutputName(const std::string& path) {
    const std::string ending = LowerEnding(path);
    if (ending != ".pdf" && ending != ".png" && ending != ".svg")
        throw UsageError("The output \"" + path + "\" must end in .pdf, .png or .svg.");
}

std::optional<PageRange> ParsePages(const std::string& text) {
    if (text.empty()) return std::nullopt;
    const auto number = [&](std::string_view piece) {
        std::int32_t value = 0;
        const auto [end, error] = std::from_chars(piece.data(), piece.data() + piece.size(), value);
        if (error != std::errc() || end != piece.data() + piece.size() || value < 1)
            throw UsageError("--pages " + text + ": pages are given as 3 or 2-5.");
        return value;
    };
    const auto dash = text.find('-');
    const std::string_view whole = text;
    PageRange range;
    range.first = number(whole.substr(0, dash));
    range.last = dash == std::string::npos ? range.first : number(whole.substr(dash + 1));
    if (range.last < range.first)
        throw UsageError("--pages " + text + ": the last page stands before the first.");
    return range;
}

void CheckPage(std::int32_t page, std::int32_t pageCount) {
    if (page >= 1 && page <= pageCount) return;
    throw CommandError("There is no page " + std::to_string(page) + ": the gazetteer has " +
                       std::to_string(pageCount) + (pageCount == 1 ? " page." : " pages."));
}

void LabelSheet(Work& work, std::int32_t page) {
    auto& document = work.TheDesk().CurrentDocument();
    // Without labels nobody asks for the map book, which may be gone.
    if (!HasFurniture(document)) return;
    auto& manager = work.Manager();
    FillFurniture(work.Host(), document, gazetteer::WithoutOuterBlanks(manager.FirstListing(page)),
                  gazetteer::WithoutOuterBlanks(manager.LastListing(page)), SheetNumber(work, page),
                  work.Gazetteer()->Geometry()->Bounds()->Width());
}

void WriteSheets(Work& work, const std::string& path, const PageRange& pages,
                 const SheetListener& before) {
    if (LowerEnding(path) == ".pdf")
        WritePdf(work, path, pages, before);
    else
        WriteNumberedFiles(work, path, pages, before);
}

void WriteDrawnPage(Work& work, const std::string& path, std::int32_t page) {
    const auto writer = OpenWriter(work, path);
    PaintSheet(work, *writer, page);
    writer->Finish();
}

}  // namespace app
