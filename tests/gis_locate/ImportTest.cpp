#include "gis_locate/GisProgram.h"

namespace tests {
namespace {

using Texts = std::vector<std::string>;

class Import : public testing::Test {
protected:
    Import() {
        program_.Write(
            "places.gpkg",
            {"places",
             0,
             {"name", "blatt:integer", "zeile", "area:real", "tiny:real", "huge:real", "day:date",
              "open:logical", "a_long_field_name", "a_long_field_too", "A_LONG_FIE", "id:integer"},
             {{{"Ärger", "3", "A", "0.1", "1.5", "1", "2024/02/29", "1", "x", "y", "z", "1"}, ""},
              {{longName_, "-12", kNull, "-1234.0625", "1e-20", "1e300", kNull, "0", "", "x", "",
                "9007199254740993"},
               ""},
              {{"\"two, words\"", kNull, "007", kNull, kNull, kNull, "1999/12/31", kNull, kNull,
                kNull, kNull, kNull},
               ""},
              {{"東京", "5", "ж", "0.3333333333333333", "1e-6", "0.5", kNull, kNull, "  x", kNull,
                "", "3"},
               ""}}});
        program_.Write("places.gpkg", {"others", 0, {"name"}, {}});
    }

    Outcome Imported(const Texts& options) {
        Texts arguments = {"import", "places.gpkg", "--layer", "places", "--force"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return program_.Done(arguments);
    }
    /// What the program reads in a table.
    nlohmann::json Table(const std::string& file) {
        const auto outcome = program_.Done({"table", file, "--json"});
        EXPECT_EQ(outcome.errors, "");
        EXPECT_TRUE(outcome.Json()["warnings"].empty()) << outcome.output;
        return outcome.Json();
    }
    Texts Names(const std::string& file) {
        Texts names;
        const auto table = Table(file);
        for (const auto& field : table["fields"]) names.push_back(field["name"]);
        return names;
    }

    // 299 bytes; the 254th is the first one of a character.
    const std::string longName_ = [] {
        std::string name = "x";
        for (int i = 0; i < 149; ++i) name += "ж";
        return name;
    }();
    GisProgram program_;
};

TEST_F(Import, WritesEachFormatSoThatTheSameRowsAreReadFromIt) {
    const Texts options = {"--listing", "name",   "--page", "blatt",  "--row",
                           "zeile",     "--keep", "area",   "--keep", "day",
                           "--keep",    "open",   "--keep", "id",     "-o"};
    // CSV has no null.
    const auto rows = [&](const std::string& cut, const nlohmann::json& none) {
        return nlohmann::json::array(
            {{"Ärger", "3", "A", "0.1", "2024-02-29", "True", "1"},
             {cut, "-12", "", "-1234.0625", none, "False", "9007199254740993"},
             {"\"two, words\"", none, "007", none, "1999-12-31", none, ""},
             {"東京", "5", "ж", "0.333333333333333", none, none, "3"}});
    };
    for (const std::string ending : {"gpkg", "csv", "dbf"}) {
        SCOPED_TRACE(ending);
        auto arguments = options;
        arguments.push_back("out." + ending);
        const auto outcome = Imported(arguments);
        EXPECT_TRUE(Contains(outcome.errors, "4 records written to out." + ending + "."));
        auto read = Table("out." + ending)["rows"];
        if (ending != "dbf") {
            EXPECT_EQ(read[3][3], "0.3333333333333333");
            read[3][3] = "0.333333333333333";
        }
        // One and 126 characters of two bytes each are 253 bytes.
        EXPECT_EQ(read, rows(ending == "dbf" ? longName_.substr(0, 253) : longName_,
                             ending == "csv" ? nlohmann::json("") : nlohmann::json()));
    }
    EXPECT_EQ(program_.Read("out.cpg"), "UTF-8");
    // The date of change is always the same.
    EXPECT_TRUE(Contains(program_.Read("out.gpkg"), "2000-01-01T00:00:00.000Z"));
    EXPECT_EQ(program_.Read("out.dbf").substr(1, 3), "\x64\x01\x01");
}

TEST_F(Import, TellsWhatADbaseTableCannotHold) {
    const auto outcome =
        Imported({"--listing", "name", "--page", "blatt", "--keep", "a_long_field_name", "--keep",
                  "a_long_field_too", "--keep", "A_LONG_FIE", "--keep", "tiny", "--keep", "huge",
                  "-o", "out.dbf"});
    EXPECT_EQ(Names("out.dbf"),
              (Texts{"Listing", "Page", "a_long_fie", "a_long_f_2", "A_LONG_F_3", "tiny", "huge"}));
    for (const char* sentence :
         {"the field \"a_long_field_name\" is named \"a_long_fie\" in out.dbf",
          "the field \"a_long_field_too\" is named \"a_long_f_2\" in out.dbf",
          "the field \"A_LONG_FIE\" is named \"A_LONG_F_3\" in out.dbf",
          "1 text was cut to the 254 bytes that a field of out.dbf holds; the first is",
          "in record 2.",
          "the field \"huge\" of out.dbf is one of texts, since its numbers have too many digits.",
          "1 number was rounded to the 15 decimals that out.dbf holds; the first is in record 2."})
        EXPECT_TRUE(Contains(outcome.errors, sentence));
    const auto rows = Table("out.dbf")["rows"];
    EXPECT_EQ(rows[3][5], "0.000001");
    EXPECT_EQ(rows[1][6], "1e+300");
    Imported({"--listing", "name", "--page", "blatt", "--keep", "a_long_field_name", "--keep",
              "a_long_field_too", "-o", "out.csv"});
    EXPECT_EQ(Names("out.csv"),
              (Texts{"Listing", "Page", "a_long_field_name", "a_long_field_too"}));
}

TEST_F(Import, TellsWhatIsNotRead) {
    program_.Write("times.geojson", R"({"type": "FeatureCollection", "features": [
{"type": "Feature", "geometry": null, "properties": {"page": 1, "at": "2024-02-29T10:00:00+05:30"}},
{"type": "Feature", "geometry": null, "properties": {"page": 2, "at": "2024-02-29T10:00:00Z"}}]})");
    program_.Shell(
        "ogr2ogr times.gpkg times.geojson -nln times -dialect SQLITE "
        "-sql \"SELECT page, CAST(x'00FF' AS BLOB) AS photo FROM times\"");
    for (const auto& [source, field, sentence] :
         {std::tuple{"times.geojson", "at",
                     "record 0, field at: the time zone of \"2024-02-29 10:00:00 +05:30\" is left "
                     "out. Further ones in this field are not listed."},
          {"times.gpkg", "photo", "times.gpkg: pictures and other bytes are not read (photo)."}}) {
        const auto outcome =
            program_.Done({"import", source, "--keep", field, "-o", "out.csv", "--force"});
        EXPECT_TRUE(Contains(outcome.errors, sentence));
    }
}

TEST_F(Import, TakesConditionsAndExpressions) {
    Imported({"--where", "blatt > 0 AND zeile <> 'A'", "--listing", "[name] ([zeile])", "--page",
              "blatt", "--column", "[id]", "--keep", "NAME", "-o", "out.csv"});
    EXPECT_EQ(program_.ReadCsv("out.csv"),
              (TableRows{{"Listing", "Page", "Column", "name"}, {"東京 (ж)", "5", "3", "東京"}}));
    // A condition on a dBase table, too.
    Imported({"--listing", "name", "--page", "blatt", "-o", "out.dbf"});
    program_.Done({"import", "out.dbf", "--where", "Page < 0", "-o", "some.csv"});
    EXPECT_EQ(program_.ReadCsv("some.csv"),
              (TableRows{{"Listing", "Page"}, {longName_.substr(0, 253), "-12"}}));
}

TEST_F(Import, RefusesInOneSentence) {
    program_.Write("mine.csv", "mine\n");
    for (const auto& [options, status, sentence] :
         {std::tuple<Texts, int, const char*>{
              {"places.gpkg", "--page", "name", "-o", "o.csv"}, 1, "has 2 layers"},
          {{"places.gpkg/others", "-o", "o.csv"},
           2,
           "has no field \"Page\"; --page names the one that holds the page. Its fields are name."},
          {{"places.gpkg/places", "--page", "sheet", "-o", "o.csv"}, 2, "has no such field"},
          {{"places.gpkg/places", "--page", "[sheet]", "-o", "o.csv"}, 2, "sheet"},
          {{"places.gpkg/places", "--page", "blatt", "--where", "no sql", "-o", "o.csv"},
           1,
           "no sql"},
          {{"places.gpkg/places", "--page", "blatt", "--initial", "-o", "o.csv"}, 2, "--initial"},
          {{"places.gpkg/places", "--page", "blatt", "-o", "mine.csv"}, 1, "exists already"},
          {{"places.gpkg/places", "--page", "blatt", "-o", "places.gpkg", "--force"},
           2,
           "made from itself"},
          {{"gone.gpkg", "-o", "o.csv"}, 1, "There is no file gone.gpkg."}}) {
        SCOPED_TRACE(testing::PrintToString(options));
        Texts arguments = {"import"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const std::string before = program_.Shell("sha256sum *");
        const auto outcome = program_.Run(arguments);
        EXPECT_EQ(outcome.status, status);
        EXPECT_TRUE(Contains(outcome.errors, sentence));
        EXPECT_EQ(std::ranges::count(outcome.errors, '\n'), 1) << outcome.errors;
        EXPECT_EQ(program_.Shell("sha256sum *"), before);
    }
}

TEST_F(Import, AddsTheLetterOfTheIndex) {
    program_.Write("names.csv",
                   "Listing,Page\n\"Ärger\",1\nchata,2\nÖdla,3\nさくら,4\n東京,5\nЖук,6\nЁлка,7\n"
                   "12 Oaks,8\n\"\"\"The\"\" End\",9\n,10\nélan,11\nØst,12\n");
    for (const auto& [locale, letters] :
         {std::pair<const char*, const char*>{"de", "A C O さ 東 Ж Е # T  E O"},
          {"sv", "Ä C Ö さ 東 Ж Е # T  E Ö"},
          {"cs", "A CH O さ 東 Ж Е # T  E O"},
          {"ja", "A C O さ 東 Ж Е # T  E O"},
          {"ru", "A C O さ 東 Ж Е # T  E O"},
          {"C", "A C O さ 東 Ж Е # T  E O"}}) {
        program_.Done(
            {"import", "names.csv", "--initial", "-o", "out.csv", "--force", "--locale", locale});
        std::string found;
        const auto rows = program_.ReadCsv("out.csv");
        for (std::size_t i = 1; i < rows.size(); ++i) found += (i == 1 ? "" : " ") + rows[i][2];
        EXPECT_EQ(found, letters) << locale;
    }
}

}  // namespace
}  // namespace tests
