#include "gis_locate/GisProgram.h"

namespace tests {
namespace {

class LocateOptions : public testing::Test {
protected:
    LocateOptions() {
        program_.Write("atlas.gpkg",
                       {"sheets",
                        3035,
                        {"blatt:real"},
                        {{{"12"}, BoxText(0, 0, 10, 10)}, {{"3"}, BoxText(10, 0, 20, 10)}}});
        program_.Write("town.gpkg", {"streets",
                                     3035,
                                     {"name", "kind", "town"},
                                     {{{"Oak", "street", "York"}, "LINESTRING (1 1, 14 1)"},
                                      {{"Ash", "path", "York"}, "LINESTRING (1 6, 2 6)"},
                                      {{"Oak", "street", "Ely"}, "LINESTRING (1 9, 1 6)"}}});
        program_.Write("town.gpkg", {"parks", 3035, {"title"}, {{{"Oak"}, BoxText(11, 1, 12, 2)}}});
    }
    void Expect(std::vector<std::string> arguments, const TableRows& rows) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        arguments.insert(arguments.end(), {"--sheets", "atlas.gpkg", "--page", "blatt"});
        EXPECT_EQ(program_.Locate(arguments), rows);
    }

    GisProgram program_;
};

TEST_F(LocateOptions, BehindASourceBelongToIt) {
    Expect({"--set", "Map=city", "town.gpkg/streets", "--where", "kind = 'street'", "--set",
            "Kind=street", "town.gpkg/parks", "--name", "title", "--set", "Kind=park", "--set",
            "Green=yes", "--grid", "2x2"},
           {{"Listing", "Page", "Row", "Column", "Map", "Kind", "Green"},
            {"Oak", "3", "B", "1", "city", "street", ""},
            {"Oak", "12", "B", "2", "city", "street", ""},
            {"Oak", "3", "B", "1", "city", "park", "yes"}});
}

TEST_F(LocateOptions, NameListings) {
    Expect({"town.gpkg/streets", "--name", "[name] ([town])"}, {{"Listing", "Page"},
                                                                {"Oak (York)", "3"},
                                                                {"Oak (York)", "12"},
                                                                {"Ash (York)", "12"},
                                                                {"Oak (Ely)", "12"}});
    Expect({"town.gpkg/streets", "--apart", "TOWN", "--squares", "first", "--grid", "2x1"},
           {{"Listing", "Page", "Row", "Column", "TOWN"},
            {"Oak (York)", "3", "B", "1", "York"},
            {"Oak (York)", "12", "B", "1", "York"},
            {"Ash", "12", "A", "1", "York"},
            {"Oak (Ely)", "12", "A", "1", "Ely"}});
}

TEST_F(LocateOptions, LabelSquares) {
    using Labels = std::vector<std::string>;
    for (const auto& [options, row, column] :
         {std::tuple<Labels, const char*, const char*>{{"--grid", "10x2"}, "E", "1"},
          {{"--grid", "10x2", "--origin", "bottom-right"}, "F", "2"},
          {{"--grid", "10x2", "--row-labels", "F..Q", "--leave-out", "IO"}, "K", "1"},
          {{"--row-labels", "1..10", "--column-labels", "west,east"}, "5", "west"},
          {{"--grid", "30x2"}, "13", "1"}}) {
        Labels arguments = {"town.gpkg/streets", "--where", "name = 'Ash'"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        Expect(arguments, {{"Listing", "Page", "Row", "Column"}, {"Ash", "12", row, column}});
    }
}

}  // namespace
}  // namespace tests
