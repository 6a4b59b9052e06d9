#pragma once

#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

/// The book of the user's guide: a series frame with a grid, an inset in a group, an index.
inline const std::string kBook = R"({"currentTemplate": "index",
 "books": [{"key": "atlas", "sections": [
   {"key": "maps", "name": "Maps", "startPage": 5,
    "pages": ["sheet$1", "sheet$2"],
    "templates": [{"key": "sheet", "name": "Map sheet", "layout": [
      {"kind": "mapFrame", "name": "Main map",
       "series": {"indexLayer": "sheets.dbf", "firstPage": 1,
                  "grids": [{"kind": "index", "visible": true,
                             "rows": ["A", "B", "C"], "columns": ["1", "2", "3"]}]}},
      {"kind": "group", "members": [{"kind": "mapFrame", "name": "Inset"}]}]}]},
   {"key": "back", "name": "Index", "startPage": 40, "pages": ["index$1"],
    "templates": [{"key": "index", "name": "Gazetteer", "layout": []}]}]},
  {"key": "other", "sections": []}]})";

/// The book with one piece of its text replaced.
inline std::string BookWith(const std::string& piece, const std::string& other) {
    std::string book = kBook;
    const auto found = book.find(piece);
    EXPECT_NE(found, std::string::npos) << piece;
    return book.replace(found, piece.size(), other);
}
