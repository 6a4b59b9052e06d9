#pragma once

#include <string>
#include <vector>

#include "app/Program.h"

namespace tests {

/// Writes a table of names in UTF-8, in an order far from any alphabet's, each on a page of its
/// own.
void WriteNames(const Program& program, const std::string& table, std::vector<std::string> names);

/// The lines of names and headings of a printed index of one column group, from the top, without
/// leaders and references.
std::vector<std::string> PrintedLines(const Program& program, const std::string& pdf);

/// The options for an index of one column group that takes all names on one sheet.
std::vector<std::string> MakeTall(const std::string& table, const std::string& locale);

}  // namespace tests
