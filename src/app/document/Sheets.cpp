#include "app/document/Sheets.h"

#include <charconv>
#include <filesystem>
#include <sys/resource.h>

#include "app/document/BehindMaps.h"
#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "app/document/Headings.h"
#include "app/document/PageFurniture.h"
#include "app/document/SheetMeanings.h"
#include "desk/drawing/ElementPainter.h"
#include "desk/drawing/PageWriter.h"
#include "layout/RowElements.h"
#include "support/Conversions.h"
#include "support/Text.h"

namespace app {
namespace {

// Returns the headings of the drawn page, from the top of each column group, without those that
// tell that the one before goes on.
std::vector<desk::Bookmark> HeadingsOf(OpenDocument& open, HeadingSequence& sequence) {
    std::vector<desk::Bookmark> headings;
    const auto box = open.Host().NewEnvelope();
    const auto display = open.Host().NewApplication()->Document()->ActiveView()->Display();
    for (const auto& member :
         gazetteer::MembersTagged(*open.Gazetteer(), {gazetteer::kBreakGroupTag})) {
        const std::string title = HeadingText(*host::As<host::IHostGroupElement>(member));
        if (title.empty() || sequence.GoesOn(title)) continue;
        member->MeasureBounds(display, box);
        headings.push_back({title, box->YMax()});
    }
    return headings;
}

HeadingSequence SequenceFor(OpenDocument& open) {
    return HeadingSequence(open.Manager().BoundSettings().typesetting.continued);
}

void WriteSheet(OpenDocument& open, desk::PageWriter& writer, std::int32_t page,
                SheetMeanings* meanings, HeadingSequence& headings) {
    const auto& document = open.TheDesk().CurrentDocument();
    writer.BeginPage(document.pageWidth, document.pageHeight);
    PaintSheet(open, writer.Sheet(), page, meanings);
    const auto name = open.Manager().PageName(page);
    writer.EndPage(gazetteer::WithoutOuterBlanks(gazetteer::ToText(name, open.Host().Locale())),
                   HeadingsOf(open, headings));
}

// A map book that cannot be read is told where its number is printed.
std::int64_t NumberOf(OpenDocument& open, std::int32_t page) {
    try {
        return SheetNumber(open, page);
    } catch (const host::Failure&) {
        return page;
    }
}

std::unique_ptr<desk::PageWriter> OpenWriter(OpenDocument& open, const std::string& path,
                                             std::int32_t firstPage, const SheetOutput& output) {
    return desk::OpenPageWriter(path, {.title = open.TheDesk().CurrentDocument().title,
                                       .dotsPerInch = output.dotsPerInch,
                                       .language = open.TheDesk().LanguageTag(),
                                       .firstNumber = NumberOf(open, firstPage),
                                       .tags = output.tags,
                                       .press = output.press});
}

bool HoldsManySheets(const std::string& path) {
    const auto* format = desk::FormatOf(path);
    return format && format->manySheets;
}

// Returns null where no meanings are kept.
std::unique_ptr<SheetMeanings> MeaningsFor(OpenDocument& open, const std::string& path,
                                           const SheetOutput& output) {
    if (!HoldsManySheets(path) || output.press || !(output.tags || output.maps)) return nullptr;
    return std::make_unique<SheetMeanings>(open, output.maps.get());
}

// Raises the limit of open files to the hard limit of the process.
void AllowManyFiles() {
    rlimit files{};
    if (::getrlimit(RLIMIT_NOFILE, &files) != 0) return;
    files.rlim_cur = files.rlim_max;
    ::setrlimit(RLIMIT_NOFILE, &files);
}

}  // namespace

void PaintSheet(OpenDocument& open, desk::Canvas& canvas, std::int32_t page,
                desk::TextReader* reader) {
    LabelSheet(open, page);
    desk::ElementPainter painter(*open.TheDesk().Text(), reader);
    for (const auto& element : open.TheDesk().CurrentDocument().elements)
        painter.Paint(canvas, element);
}

std::string NumberedPath(const std::string& path, std::int32_t page) {
    const std::filesystem::path whole = path;
    return (whole.parent_path() /
            (whole.stem().string() + '-' + std::to_string(page) + whole.extension().string()))
        .string();
}

void CheckOutputName(const std::string& path) {
    if (!desk::FormatOf(path))
        throw UsageError("The output \"" + path + "\" must end in " + desk::PageEndings() + '.');
    CheckFolderOf(path);
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

void DrawPage(OpenDocument& open, std::int32_t page) {
    auto& manager = open.Manager();
    manager.SetIndexToPageNumber(page);
    open.CheckNothingFailed();
    if (!manager.CanDraw())
        throw CommandError("Page " + std::to_string(page) +
                           " of the stored results holds no listing; the document is damaged.");
}

void CheckApart(const OpenDocument& open, const std::string& path, const std::string& document) {
    const std::string refused = "The file \"" + path + "\" cannot be written: ";
    if (IsSameFile(path, document)) throw UsageError(refused + "it is the document.");
    if (open.IsMadeFrom(path)) throw UsageError(refused + "the document is made from it.");
}

void CheckSheetsApart(const OpenDocument& open, const std::string& path, const PageRange& pages,
                      const std::string& document) {
    const bool one = HoldsManySheets(path);
    for (std::int32_t page = pages.first; page <= (one ? pages.first : pages.last); ++page)
        CheckApart(open, one ? path : NumberedPath(path, page), document);
}

void WriteSheets(OpenDocument& open, const std::string& path, const PageRange& pages,
                 const SheetListener& before, const SheetOutput& output) {
    const bool one = HoldsManySheets(path);
    const auto meanings = MeaningsFor(open, path, output);
    auto headings = SequenceFor(open);
    std::optional<BehindMaps> behind;
    if (one && output.maps && output.maps->IsSameFile()) behind.emplace();
    const std::string target = behind ? behind->IndexPath() : path;
    if (!one) AllowManyFiles();
    std::vector<std::unique_ptr<desk::PageWriter>> files;
    for (std::int32_t page = pages.first; page <= pages.last; ++page) {
        if (!one || files.empty())
            files.push_back(
                OpenWriter(open, one ? target : NumberedPath(path, page), page, output));
        if (before) before(page);
        DrawPage(open, page);
        WriteSheet(open, *files.back(), page, meanings.get(), headings);
        if (!one || page == pages.last) files.back()->Complete();
    }
    // Only now, so that a failure leaves the files of an earlier export unchanged.
    for (const auto& file : files) file->Place();
    if (behind) behind->Write(*output.maps, open.TheDesk().CurrentDocument().title, path);
}

void WriteDrawnPage(OpenDocument& open, const std::string& path, std::int32_t page,
                    const SheetOutput& output) {
    const auto meanings = MeaningsFor(open, path, output);
    const auto writer = OpenWriter(open, path, page, output);
    auto headings = SequenceFor(open);
    WriteSheet(open, *writer, page, meanings.get(), headings);
    writer->Finish();
}

}  // namespace app
