#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "app/document/OpenDocument.h"

namespace app {

/// The first and the last page, counted from 1.
struct PageRange {
    std::int32_t first = 1;
    std::int32_t last = 1;
};

/// Takes "2-5" or "3"; returns nothing for an empty text, which means all pages. Throws a
/// UsageError for another form.
std::optional<PageRange> ParsePages(const std::string& text);

/// Throws a CommandError unless the page is from 1 to the count.
void CheckPage(std::int32_t page, std::int32_t pageCount);

/// Called before each page is drawn. What it throws ends the writing.
using SheetListener = std::function<void(std::int32_t page)>;

/// Writes pages of the bound gazetteer, one sheet each, by the ending of the file's name: one PDF
/// with bookmarks, or images with -1, -2, ... before the ending. After a failure all files are as
/// they were.
void WriteSheets(OpenDocument& open, const std::string& path, const PageRange& pages,
                 const SheetListener& before = {});

/// Returns the file name of a page, for formats with one file for each page.
std::string NumberedPath(const std::string& path, std::int32_t page);

/// Writes the sheet with the page that is drawn in the document at present.
void WriteDrawnPage(OpenDocument& open, const std::string& path, std::int32_t page);

/// Throws a UsageError unless the ending of the name is that of a format for pages.
void CheckOutputName(const std::string& path);

}  // namespace app
