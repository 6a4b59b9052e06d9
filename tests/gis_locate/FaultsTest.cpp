#include <filesystem>

#include "gis_locate/GisProgram.h"

namespace tests {
namespace {

Layer Sheets(std::vector<LayerFeature> sheets) {
    return {"sheets", 3035, {"page"}, std::move(sheets)};
}

Layer Places(std::vector<LayerFeature> places) {
    return {"places", 3035, {"name"}, std::move(places)};
}

struct Case {
    const char* what;
    Layer sheets;
    Layer places;
    std::vector<std::string> options;
    TableRows rows;  ///< Without the names of the fields.
    std::vector<std::string> sentences;
};

class LocateFaults : public testing::Test {
protected:
    void Expect(const Case& fault) {
        SCOPED_TRACE(fault.what);
        const GisProgram program;
        program.Write("atlas.gpkg", fault.sheets);
        program.Write("places.gpkg", fault.places);
        std::vector<std::string> arguments = {"places.gpkg", "--sheets", "atlas.gpkg"};
        arguments.insert(arguments.end(), fault.options.begin(), fault.options.end());
        const auto outcome = program.LocateOutcome(arguments);
        auto rows = program.ReadCsv("located.csv");
        rows.erase(rows.begin());
        EXPECT_EQ(rows, fault.rows);
        for (const auto& sentence : fault.sentences)
            EXPECT_TRUE(Contains(outcome.errors, sentence));
    }

    const std::string square_ = BoxText(0, 0, 10, 10);
    const std::string other_ = BoxText(10, 0, 20, 10);
};

TEST_F(LocateFaults, OfFeaturesAreCountedAndTold) {
    const Layer places =
        Places({{{"bow"}, "POLYGON ((1 1, 4 4, 4 1, 1 4, 1 1))"},
                {{"line"}, "LINESTRING (1 1, -999 2, 3 3)"},
                {{"area"}, "POLYGON ((1 1, 4 1, -999 2, 4 4, 1 1))"},
                {{"flat"}, "POLYGON ((1 1, 4 4, 1 1))"},
                {{"empty"}, "LINESTRING EMPTY"},
                {{"none"}, ""},
                {{"no parts"}, "MULTIPOINT EMPTY"},
                {{""}, "POINT (2 2)"},
                {{kNull}, "POINT (2 2)"},
                {{"outside"}, "POINT (20 20)"},
                {{"dot"}, "LINESTRING (5 5, 5 5)"},
                {{"touching"}, "LINESTRING (0 20, 5 10, 9 20)"},
                {{"corner"}, BoxText(-5, -5, 0, 0)},
                {{"mixed"},
                 "GEOMETRYCOLLECTION (POINT (8 8), LINESTRING (8 8, 9 8), "
                 "POLYGON ((8 8, 9 8, 9 9, 8 8)))"},
                {{"curve"}, "CIRCULARSTRING (6 2, 7 3, 8 2)"},
                {{"loop"}, "POLYGON ((1 6, 4 6, 4 9, 1 9, 1 6, 2 7, 3 7, 2 8, 1 6))"}});
    const std::vector<std::string> sentences = {
        "places.gpkg: 2 features without a name left out (number 8, 9).",
        "places.gpkg: 3 features without a place left out (number 5, 6, 7).",
        "places.gpkg: 3 features with broken geometries left out (number 2, 3, 4).",
        "places.gpkg: 1 line without length left out (number 11).",
        "places.gpkg: 1 feature on no sheet left out (number 10).",
        "places.gpkg: 2 features that only touch a sheet left out (number 12, 13).",
        "places.gpkg: 2 features had broken geometries, which were mended (number 1, 16)."};
    Expect({"in a grid",
            Sheets({{{"1"}, square_}}),
            places,
            {"--grid", "2x2"},
            {{"bow", "1", "B", "1"},
             {"mixed", "1", "A", "2"},
             {"curve", "1", "B", "2"},
             {"loop", "1", "A", "1"}},
            sentences});
    Expect({"in an outline that is no rectangle",
            Sheets({{{"1"}, "POLYGON ((0 0, 10 0, 11 5, 10 10, 0 10, 0 0))"}}),
            places,
            {},
            {{"bow", "1"}, {"mixed", "1"}, {"curve", "1"}, {"loop", "1"}},
            sentences});
}

TEST_F(LocateFaults, OfSheetsAreCountedAndTold) {
    const Layer place = Places({{{"place"}, "POINT (2 2)"}, {{"far"}, "POINT (12 9)"}});
    Expect({"no page, no area, no feature",
            Sheets({{{"7"}, other_},
                    {{""}, square_},
                    {{kNull}, square_},
                    {{"3"}, "POINT (5 5)"},
                    {{"4"}, ""},
                    {{"6"}, BoxText(30, 0, 40, 10)}}),
            place,
            {"--grid", "1x1"},
            {{"far", "7", "A", "1"}},
            {"atlas.gpkg: 2 sheets without a page were left out (number 2, 3).",
             "atlas.gpkg: 2 sheets that are no areas were left out (number 4, 5).",
             "1 sheet has no feature: page 6.",
             "places.gpkg: 1 feature on no sheet left out (number 1)."}});
    Expect({"two sheets of one page, and numbers before texts",
            Sheets({{{"Nan"}, square_},
                    {{"10"}, square_},
                    {{"Inf"}, square_},
                    {{"2"}, square_},
                    {{"10"}, other_},
                    {{"2.5"}, square_}}),
            place,
            {},
            {{"place", "2"},
             {"place", "2.5"},
             {"place", "10"},
             {"place", "Inf"},
             {"place", "Nan"},
             {"far", "10"}},
            {"atlas.gpkg: 2 sheets have the page \"10\"."}});
    Expect({"a broken outline",
            Sheets({{{"1"}, "POLYGON ((0 0, 20 10, 20 0, 0 10, 0 0))"}}),
            place,
            {},
            {{"place", "1"}},
            {"atlas.gpkg: 1 sheet had a broken outline, which was mended (number 1).",
             "1 feature on no sheet left out (number 2)."}});
    Layer unknown = place;
    unknown.epsg = 0;
    Expect({"a reference system that is not known",
            Sheets({{{"1"}, square_}}),
            unknown,
            {},
            {{"place", "1"}},
            {"places.gpkg has no reference system; it is taken for that of atlas.gpkg."}});
}

TEST(SquaresOfOnesOwn, AreCountedAndTold) {
    const GisProgram program;
    program.Write("atlas.gpkg",
                  Sheets({{{"1"}, BoxText(0, 0, 10, 10)}, {{"2"}, BoxText(50, 0, 60, 10)}}));
    program.Write("places.gpkg", Places({{{"left"}, "LINESTRING (0 5, 5 5)"},
                                         {{"both"}, "POLYGON ((2 2, 8 2, 5 4, 2 2))"},
                                         {{"over"}, BoxText(0, 7, 10, 8)},
                                         {{"gap"}, "POINT (9.5 9.5)"},
                                         {{"shared"}, "LINESTRING (5 1, 5 3)"}}));
    // The last one is cut to the sheet in an area and a line.
    program.Write("squares.gpkg",
                  {"squares",
                   3035,
                   {"row", "column:integer"},
                   {{{"b", "10"}, "POLYGON ((5 0, 9 0, 9 6, 5 6, 5 0))"},
                    {{"b", "9"}, "POLYGON ((0 0, 5 5, 5 0, 0 5, 0 0))"},
                    {{"a", "9"}, "LINESTRING (0 0, 1 1)"},
                    {{"a", "9"}, "POLYGON ((-1 6, 9 6, 9 9, -1 9, -1 8, 0 8, 0 7, -1 7, -1 6))"}}});
    const auto outcome = program.LocateOutcome(
        {"places.gpkg", "--sheets", "atlas.gpkg", "--cells", "squares.gpkg", "--squares", "all"});
    EXPECT_EQ(program.ReadCsv("located.csv"), (TableRows{{"Listing", "Page", "Row", "Column"},
                                                         {"both", "1", "b", "9"},
                                                         {"both", "1", "b", "10"},
                                                         {"over", "1", "a", "9"},
                                                         {"shared", "1", "b", "10"}}));
    for (const char* sentence :
         {"squares.gpkg: 1 square that is no area was left out (number 3).",
          "squares.gpkg: 1 square had a broken outline, which was mended (number 2).",
          "squares.gpkg: the sheet of page \"2\" has no square.",
          "2 features in no square of a sheet left out (number 1, 4)."})
        EXPECT_TRUE(Contains(outcome.errors, sentence));
}

class LocateRefusals : public testing::Test {
protected:
    LocateRefusals() {
        program_.Write("atlas.gpkg", Sheets({{{"1"}, BoxText(0, 0, 10, 10)}}));
        program_.Write("places.gpkg", Places({{{"place"}, "POINT (2 2)"}}));
        program_.Write("odd.gpkg", Sheets({{{"1"}, "POLYGON ((0 0, 10 0, 9 9, 0 10, 0 0))"}}));
        program_.Write("none.gpkg", Sheets({{{""}, BoxText(0, 0, 10, 10)}}));
        std::vector<LayerFeature> many(5000, {{"name"}, "POINT (2 2)"});
        program_.Write("torn.gpkg", Places(many));
        std::filesystem::resize_file(program_.File("torn.gpkg"),
                                     std::filesystem::file_size(program_.File("torn.gpkg")) / 2);
        program_.Shell("ogr2ogr streets.shp places.gpkg; cp streets.dbf kept.dbf");
        program_.Write("mine.csv", "mine\n");
        program_.Write("mine.cpg", "1252\n");
    }
    static std::vector<std::string> Locating(const char* features, const char* sheets,
                                             const char* output) {
        return {"locate", features, "--sheets", sheets, "--grid", "2x2", "-o", output, "--force"};
    }

    GisProgram program_;
};

TEST_F(LocateRefusals, AreOneSentenceAndLeaveNoFile) {
    auto kept = Locating("places.gpkg", "atlas.gpkg", "mine.csv");
    kept.pop_back();
    auto keptEncoding = Locating("places.gpkg", "atlas.gpkg", "mine.dbf");
    keptEncoding.pop_back();
    const std::vector<std::string> overSquares = {
        "locate",  "places.gpkg", "--sheets", "atlas.gpkg", "-o",  "odd.gpkg",
        "--force", "--cells",     "odd.gpkg", "--cell-row", "page"};
    const std::vector<std::tuple<std::vector<std::string>, int, const char*>> refusals = {
        {kept, 1, "The table \"mine.csv\" exists already; --force replaces it."},
        {keptEncoding, 1, "The file \"mine.cpg\", which tells the encoding of a table"},
        {Locating("places.gpkg", "atlas.gpkg", "places.gpkg"), 2, "made from itself"},
        {Locating("places.gpkg/places", "atlas.gpkg", "./places.gpkg"), 2, "made from itself"},
        {Locating("places.gpkg", "atlas.gpkg/sheets", "atlas.gpkg"), 2, "made from itself"},
        {overSquares, 2, "made from itself"},
        {Locating("streets.shp", "atlas.gpkg", "streets.dbf"), 2, "made from itself"},
        {Locating("places.gpkg", "odd.gpkg", "out.csv"), 1,
         "odd.gpkg: the sheet of page \"1\" is no rectangle, so that no grid can be laid over it."},
        {Locating("places.gpkg", "none.gpkg", "out.csv"), 1, "none.gpkg has no sheet"},
        {Locating("torn.gpkg", "atlas.gpkg", "out.csv"), 1, "torn.gpkg"},
        {Locating("places.gpkg", "atlas.gpkg", "gone/out.csv"), 1, "gone/out.csv"},
        {Locating("places.gpkg", "atlas.gpkg", "out.shp"), 2, "must end in .dbf, .gpkg or .csv"},
        {Locating("places.gpkg", "atlas.gpkg/gone", "out.csv"), 1,
         "atlas.gpkg has no layer \"gone\"; its layers are \"sheets\"."},
        {{"import", "torn.gpkg", "--listing", "name", "--page", "name", "-o", "out.csv"},
         1,
         "torn.gpkg"}};
    const std::string before = program_.Shell("sha256sum *");
    for (const auto& [arguments, status, sentence] : refusals) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const auto outcome = program_.Run(arguments);
        EXPECT_EQ(outcome.status, status);
        EXPECT_TRUE(Contains(outcome.errors, sentence));
        EXPECT_EQ(std::ranges::count(outcome.errors, '\n'), 1) << outcome.errors;
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(program_.Shell("sha256sum *"), before);
    }
}

}  // namespace
}  // namespace tests
