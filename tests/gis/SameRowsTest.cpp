#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "desk/tables/TablePath.h"
#include "gis/PostgresServer.h"
#include "gis/Sources.h"

namespace tests {
namespace {

struct Format {
    std::string driver;
    std::string file;
    std::vector<std::string> options;
    bool hasBooleans = true;  ///< Else they are 1 and 0.
    bool hasDates = true;     ///< Else they have a time, and no date is the empty text.
};

const std::vector<Format>& Formats() {
    static const std::vector<Format> formats = {
        {"GPKG", "names.gpkg", {}},
        {"ESRI Shapefile", "copy.shp", {"-lco", "ENCODING=UTF-8"}, false},
        {"CSV", "typed.csv", {"-lco", "CREATE_CSVT=YES"}},
        {"GeoJSON", "names.geojson", {}},
        // An index of places would put the rows into its own order.
        {"FlatGeobuf", "names.fgb", {"-lco", "SPATIAL_INDEX=NO"}, true, false},
        {"XLSX", "names.xlsx", {}},
        {"ODS", "names.ods", {}},
        {"SQLite", "names.sqlite", {}},
        {"SQLite", "spatial.sqlite", {"-dsco", "SPATIALITE=YES"}},
    };
    return formats;
}

/// The last field, Booleans, as 1 and 0.
Rows WithNumbersForBooleans(Rows rows) {
    for (Cells& cells : rows)
        if (auto& flag = cells.back()) flag = *flag == "True" ? "1" : "0";
    return rows;
}

Rows WithTimesForDates(Rows rows) {
    for (Cells& cells : rows) {
        const std::string date = cells[6].value_or("");
        cells[6] = date.empty() ? date : date + " 00:00:00";
    }
    return rows;
}

/// As a format without types has them: no value is a text without letters.
Rows AsTexts(Rows rows) {
    rows = WithNumbersForBooleans(std::move(rows));
    for (Cells& cells : rows) {
        for (auto& cell : cells) cell = cell.value_or("");
        std::string date = cells[6].value_or("");
        std::ranges::replace(date, '-', '/');
        cells[6] = date;
    }
    return rows;
}

TEST(SameRows, ComeOutOfEveryFormat) {
    const Sources sources;
    const Rows rows = RowsAt(sources.File("names.dbf"));
    ASSERT_EQ(rows.size(), 8U);
    for (const Format& format : Formats()) {
        SCOPED_TRACE(format.file);
        sources.Copy(format.driver, sources.File(format.file), format.options);
        Rows expected = format.hasBooleans ? rows : WithNumbersForBooleans(rows);
        if (!format.hasDates) expected = WithTimesForDates(expected);
        EXPECT_EQ(Lines(RowsAt(sources.File(format.file))), Lines(expected));
    }
}

TEST(SameRows, ComeOutOfTextsWithoutTypes) {
    const Sources sources;
    sources.Copy("CSV", sources.File("names.csv"));
    EXPECT_EQ(Lines(RowsAt(sources.File("names.csv"))),
              Lines(AsTexts(RowsAt(sources.File("names.dbf")))));

    // What is written exactly as a number would be is one; all other texts stay as they are.
    sources.Write("numbers.csv",
                  "Page,Note\n12,\n-3.25,\n007,\n12.50,\n1E5,\n+1,\n100000,\n3000000000,\n"
                  "0.00001,\n0,\n 4 ,\n0x10,\ninf,\n12345678901234567890,\n1e300,\n-0,\n");
    const auto table = desk::OpenTable(desk::FindTable(sources.File("numbers.csv")));
    using Text = std::string;
    const std::vector<host::Variant> expected = {12,
                                                 -3.25,
                                                 Text("007"),
                                                 Text("12.50"),
                                                 Text("1E5"),
                                                 Text("+1"),
                                                 100000,
                                                 3e9,
                                                 0.00001,
                                                 0,
                                                 Text(" 4"),
                                                 Text("0x10"),
                                                 Text("inf"),
                                                 Text("12345678901234567890"),
                                                 Text("1e300"),
                                                 0};
    const auto cursor = table->Search(nullptr, true);
    for (const auto& value : expected) EXPECT_EQ(cursor->NextRow()->Value(0), value);
    EXPECT_EQ(cursor->NextRow(), nullptr);
}

TEST(SameRows, ComeFromAServer) {
    const Sources sources;
    const PostgresServer server;
    const std::string atlas = server.Connection();
    sources.Copy("PostgreSQL", atlas);
    const std::string rows = Lines(RowsAt(sources.File("names.dbf")));
    EXPECT_EQ(Lines(RowsAt(atlas + "/names")), rows);
    EXPECT_EQ(Lines(RowsAt(atlas)), rows);

    // Its socket's folder is the last part, with and without a layer behind it.
    const auto host = atlas.find("host="), end = atlas.find(' ', host);
    const std::string hostLast =
        "PG:user=postgres dbname=postgres " + atlas.substr(host, end - host);
    EXPECT_EQ(Lines(RowsAt(hostLast)), rows);
    EXPECT_EQ(Lines(RowsAt(hostLast + "/names")), rows);
}

}  // namespace
}  // namespace tests
