#pragma once

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "app/Program.h"
#include "support/Text.h"

namespace tests {

/// Writes a table of names in UTF-8, in an order far from any alphabet's, each on a page of its
/// own.
inline void WriteNames(const Program& program, const std::string& table,
                       std::vector<std::string> names) {
    std::shuffle(names.begin(), names.end(), std::mt19937(7));
    support::DbfBuilder dbf(
        {{"LISTING", 'C', 250}, {"PAGE", 'N', 4}, {"ROW", 'N', 4}, {"COLUMN", 'N', 4}});
    for (std::size_t i = 0; i < names.size(); ++i)
        dbf.Row({names[i], std::to_string(i + 1), "2", "3"});
    dbf.Write(program.File(table + ".dbf"));
    program.Write(table + ".cpg", "UTF-8");
}

/// The lines of names and headings of a printed index of one column group, from the top, without
/// leaders and references.
inline std::vector<std::string> PrintedLines(const Program& program, const std::string& pdf) {
    std::string all = program.Shell("pdftotext -raw " + pdf + " -");
    // Marks of direction that pdftotext puts around texts from right to left.
    for (const char* mark : {"\u202A", "\u202B", "\u202C"})
        all = gazetteer::ReplaceAll(std::move(all), mark, "");
    std::vector<std::string> lines;
    for (const std::string& line : gazetteer::Split(all, '\n')) {
        if (line == "Listing Page") break;  // The title row is printed after the rows.
        lines.push_back(line.substr(0, line.find("..")));
    }
    return lines;
}

/// The options for an index of one column group that takes all names on one sheet.
inline std::vector<std::string> MakeTall(const std::string& table, const std::string& locale) {
    return {"make",          table + ".dbf", "-o",   table + ".pdf", "--document",
            table + ".json", "--locale",     locale, "--page-size",  "3x60"};
}

}  // namespace tests
