#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "app/document/OpenDocument.h"

namespace app {

/// Pages from and to, both included, from 1.
struct PageRange {
    std::int32_t first = 1;
    std::int32_t last = 1;
};

/// "2-5" or "3"; nothing for an empty text, which stands for all pages. Raises a UsageError for
/// another form.
std::optional<PageRange> ParsePages(const std::string& text);

/// Raises a CommandError for a page that is not there.
void CheckPage(std::int32_t page, std::int32_t pageCount);

/// Is told of each page before it is drawn. What it raises ends the writing.
using SheetListener = std::function<void(std::int32_t page)>;

/// Writes pages of the bound gazetteer, one sheet each, by the ending of the file's name: one PDF
/// with bookmarks, or images with -1, -2, ... before the ending. After a failure all
/// files are as they were.
void WriteSheets(OpenDocument& open, const std::string& path, const PageRange& pages,
                 const SheetListener& before = {});

/// The name under which a page is written, where each page has a file.
std::string NumberedPath(const std::string& path, std::int32_t page);

/// Gives the sheet the running head and the number of a page.
void LabelSheet(OpenDocument& open, std::int32_t page);

/// Writes the page that is drawn in the document as it stands.
void WriteDrawnPage(OpenDocument& open, const std::string& path, std::int32_t page);

/// Fails unless the name has an ending of what pages can be written to.
void CheckOutputName(const std::string& path);

}  // namespace app
