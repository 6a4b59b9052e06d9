#include "alphabets/Index.h"

#include <algorithm>
#include <random>

#include "support/Text.h"

namespace tests {
namespace {

// Marks of direction that pdftotext puts around texts from right to left.
std::string WithoutDirectionMarks(std::string text) {
    for (const char* mark : {"\u202A", "\u202B", "\u202C"})
        text = gazetteer::ReplaceAll(std::move(text), mark, "");
    return text;
}

}  // namespace

void WriteNames(const Program& program, const std::string& table, std::vector<std::string> names) {
    std::shuffle(names.begin(), names.end(), std::mt19937(7));
    support::DbfBuilder dbf(
        {{"LISTING", 'C', 250}, {"PAGE", 'N', 4}, {"ROW", 'N', 4}, {"COLUMN", 'N', 4}});
    for (std::size_t i = 0; i < names.size(); ++i)
        dbf.Row({names[i], std::to_string(i + 1), "2", "3"});
    dbf.Write(program.File(table + ".dbf"));
    program.Write(table + ".cpg", "UTF-8");
}

std::vector<std::string> PrintedLines(const Program& program, const std::string& pdf) {
    std::vector<std::string> lines;
    const std::string all = program.Shell("pdftotext -raw " + pdf + " -");
    for (const std::string& line : gazetteer::Split(WithoutDirectionMarks(all), '\n')) {
        if (line == "Listing Page") break;  // The title row is printed after the rows.
        lines.push_back(line.substr(0, line.find("..")));
    }
    return lines;
}

std::vector<std::string> MakeTall(const std::string& table, const std::string& locale) {
    return {"make",          table + ".dbf", "-o",   table + ".pdf", "--document",
            table + ".json", "--locale",     locale, "--page-size",  "3x60"};
}

}  // namespace tests
