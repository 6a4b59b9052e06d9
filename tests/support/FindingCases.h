#pragma once

#include <string>
#include <vector>

#include "support/DbfBuilder.h"
#include "support/TemporaryFolder.h"

namespace support {

/// A document in which something would be wrong in print.
struct FindingCase {
    const char* document;               ///< Made from the table of this name.
    std::vector<std::string> settings;  ///< What is set in it.
    const char* kind;                   ///< Of one of its findings,
    const char* part;                   ///< a part of the sentence,
    const char* keys = "{}";            ///< and some of the further keys, as JSON.
};

inline const FindingCase kFindingCases[] = {
    {"long", {"Listing.ColumnWidth=15"}, "outside-sheet", "off the sheet", R"({"page": 1})"},
    {"long",
     {"RepeatSpacing=0.8", "Page.ColumnWidth=0.4", "Listing.ColumnWidth=0.7"},
     "outside-frame",
     " beyond the right edge of the frame",
     R"({"page": 1})"},
    {"long", {}, "heading-left-out", "found no room", R"({"page": 4})"},
    {"long", {}, "heading-alone", "stands alone", R"({"page": 2})"},
    {"long", {"SamplePage=true"}, "no-place", "only a sample page was asked for"},
    {"long",
     {"Listing.ColumnFontSymbol=No Such Font,8"},
     "missing-font",
     "stands in for it in the column \"Listing\".",
     R"({"column": "Listing"})"},
    {"odd",
     {"Listing.Expression=[Listing] \U000F0000"},
     "missing-character",
     "page 1: no installed font has the character U+F0000 of the listing \"",
     R"({"column": "Listing", "page": 1})"},
    {"odd",
     {"Page.Title=\U000F0000"},
     "missing-character",
     "U+F0000 of the title of the column \"Page\"; a box",
     R"({"column": "Page"})"},
    {"odd",
     {"Listing.ColumnWidth=1"},
     "broken-word",
     "longer than a line",
     R"({"column": "Listing"})"},
    {"odd", {}, "empty-value", "the field \"Listing\"", R"({"record": 2, "column": "Listing"})"},
    {"odd", {}, "empty-value", "the field \"Page\"", R"({"record": 3, "listing": "Ash St"})"},
    {"odd", {}, "empty-value", "the field \"Row\"", R"({"record": 4, "column": "Page"})"},
    {"pageless", {}, "missing-field", "no field \"Page\"", R"({"column": "Page"})"},
    {"rowless", {}, "missing-field", "no field \"Row\"", R"({"column": "Page"})"},
    {"rowless", {"Page.Expression=$$PAGE_NUMBER $$COLUMN"}, "missing-field", "no field \"Row\""},
    {"long",
     {"Listing.Expression=[Listing] $$DOT"},
     "unknown-token",
     "\"$$DOT\", which is no token",
     R"({"column": "Listing"})"},
    {"long", {"RepeatSpacing=-1"}, "overlap", "print over each other"},
    {"long", {"Listing.MarginLeft=-0.2"}, "outside-frame", " to the left of the frame"},
    {"cut", {}, "table-fault", "cut.dbf: the header announces 3 records, but the file holds"},
};

/// The page size of the documents.
inline constexpr char kFindingPage[] = "5.5x4";

/// Writes a table with Listing (C 40), Page, Row and Column (N 4).
inline void WriteListingTable(const std::string& path,
                              const std::vector<std::vector<std::string>>& rows) {
    DbfBuilder table({{"Listing", 'C', 40}, {"Page", 'N', 4}, {"Row", 'N', 4}, {"Column", 'N', 4}});
    table.LanguageDriver(0x57);
    for (const auto& row : rows) table.Row(row);
    table.Write(path);
}

/// Writes such a table with as many listings as asked for, two to a letter, each with its number as
/// the page.
inline void WriteLongTable(const std::string& path, int listings) {
    std::vector<std::vector<std::string>> rows;
    for (int i = 0; i < listings; ++i) {
        std::string listing = "Aa Street";
        listing[0] = static_cast<char>('A' + i / 2 % 26);
        listing[1] = static_cast<char>('a' + i / 52 % 26);
        listing += i % 2 == 0 ? "" : " North Extension";
        rows.push_back({listing, std::to_string(i + 1), "1", "2"});
    }
    WriteListingTable(path, rows);
}

/// Writes the tables of the cases' documents.
inline void WriteFindingTables(const TemporaryFolder& folder) {
    WriteLongTable(folder.File("long.dbf"), 120);
    WriteListingTable(folder.File("odd.dbf"),
                      {{"Llanfairpwllgwyngyllgogerychwyrndrobwll", "1", "1", "1"},
                       {"", "2", "1", "1"},
                       {"Ash St", "", "1", "1"},
                       {"Elm St", "3", "", "2"}});
    for (const char* name : {"pageless.dbf", "rowless.dbf", "cut.dbf"})
        WriteListingTable(folder.File(name), {{"Main St", "6", "2", "3"}});
}

/// Takes fields from two of the tables and records from another, after their documents are made.
inline void TakeFields(const TemporaryFolder& folder) {
    std::string cut = folder.Read("cut.dbf");
    cut[4] = 3;  // The header's number of records.
    folder.Write("cut.dbf", cut);
    DbfBuilder({{"Listing"}, {"Row"}, {"Column"}})
        .Row({"Main St", "2", "3"})
        .Write(folder.File("pageless.dbf"));
    DbfBuilder({{"Listing"}, {"Page"}, {"Column"}})
        .Row({"Main St", "6", "3"})
        .Write(folder.File("rowless.dbf"));
}

}  // namespace support
