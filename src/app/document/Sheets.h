#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/document/MapPages.h"
#include "app/document/OpenDocument.h"
#include "desk/drawing/Canvas.h"
#include "desk/drawing/TextReader.h"
#include "pdf/color/PressProfile.h"

namespace app {

/// First and last page, from 1.
struct PageRange {
    std::int32_t first = 1;
    std::int32_t last = 1;
};

/// Parses "2-5" or "3". Returns nothing for an empty text, which means all pages. Throws UsageError
/// for another form.
std::optional<PageRange> ParsePages(const std::string& text);

/// Throws CommandError unless the page is in 1 to pageCount.
void CheckPage(std::int32_t page, std::int32_t pageCount);

/// Draws a page of the bound gazetteer. Throws if that fails or the page holds no listing.
void DrawPage(OpenDocument& open, std::int32_t page);

/// Paints the sheet with the page that the document shows now. The canvas has its origin at the
/// sheet's lower left corner. The reader, which may be null, tells what texts mean.
void PaintSheet(OpenDocument& open, desk::Canvas& canvas, std::int32_t page,
                desk::TextReader* reader = nullptr);

/// How sheets are written.
struct SheetOutput {
    double dotsPerInch = 150;              ///< Of PNG images.
    bool tags = true;                      ///< A PDF tells the structure and meaning of its texts.
    std::optional<pdf::Press> press = {};  ///< A PDF is for a printer, and then without tags.
    std::shared_ptr<MapPages> maps = {};   ///< That references of a PDF lead to; may be null.
};

/// Called before each page is drawn. An exception from it cancels the export.
using SheetListener = std::function<void(std::int32_t page)>;

/// Writes pages of the bound gazetteer, one sheet each. The format follows the ending of the path:
/// one PDF with bookmarks, or images numbered -1, -2, ... before the ending. After a failure all
/// files are unchanged.
void WriteSheets(OpenDocument& open, const std::string& path, const PageRange& pages,
                 const SheetListener& before = {}, const SheetOutput& output = {});

/// Returns the file name of a page, for formats with one file per page.
std::string NumberedPath(const std::string& path, std::int32_t page);

/// Throws UsageError if a file to write is one that the document is made from, or its own. Whether
/// or not the document is on disk, its own is the one of the given name.
void CheckApart(const OpenDocument& open, const std::string& path, const std::string& document);

/// The same for the files that WriteSheets would write.
void CheckSheetsApart(const OpenDocument& open, const std::string& path, const PageRange& pages,
                      const std::string& document);

/// Writes the sheet with the page that the document shows now.
void WriteDrawnPage(OpenDocument& open, const std::string& path, std::int32_t page,
                    const SheetOutput& output = {});

/// Throws UsageError unless the ending is that of a page format, and CommandError if there is no
/// such folder.
void CheckOutputName(const std::string& path);

}  // namespace app
