#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "desk/tables/DbfTable.h"
#include "desk_tables/ForeignLines.h"

namespace desk {
namespace {

using nlohmann::json;

const std::string kFolder = GAZETTEER_SOURCE_DIR "/tests/desk_tables/foreign/";

const json& Readings() {
    static const json readings = json::parse(std::ifstream(kFolder + "READINGS.json"));
    return readings;
}

/// Level 7 tables: the readings take their 48-byte field entries for 32-byte ones.
const std::set<std::string> kLevel7 = {
    "albfernandez_javadbf/bug-102__bug102.dbf", "albfernandez_javadbf/fixtures__dbase_7.dbf",
    "albfernandez_javadbf/inventory.dbf", "albfernandez_javadbf/test_delete.dbf",
    "infused_dbf/dbase_8c.dbf"};

/// Why the values of other tables are not those of the reading.
const std::map<std::string, std::string> kOtherValues = {
    {"albfernandez_javadbf/bug-33-corrupted-file-sync-mode__myfileafter-corrupted.dbf",
     "the reading takes header bytes for the record"},
    {"albfernandez_javadbf/bug-46-zero_field_count__a3.dbf", "text left undecoded"},
    {"albfernandez_javadbf/bug-60-fieldlength__060.dbf", "text left undecoded"},
    {"infused_dbf/mazovia.dbf", "text left undecoded"},
    {"mbloch_mapshaper/dbf__big5.dbf", "text left undecoded"},
    {"mbloch_mapshaper/dbf__cpg__shiftjis.dbf", "text left undecoded"},
    {"mbloch_mapshaper/dbf__eucjp.dbf", "text left undecoded"},
    {"mbloch_mapshaper/dbf__gb2312.dbf", "text left undecoded"},
    {"mbloch_mapshaper/dbf__gbk.dbf", "text left undecoded"},
    {"mbloch_mapshaper/dbf__latin1.dbf", "text left undecoded"},
    {"mbloch_mapshaper/dbf__periphereies.dbf", "text left undecoded"},
    {"mbloch_mapshaper/dbf__shiftjis.dbf", "text left undecoded"},
    {"GeospatialPython_pyshp/latin1.dbf", "text left undecoded"},
    {"yellowfeather_DbfDataReader/MS__KHDM.DBF", "text left undecoded"},
    {"mbloch_mapshaper/dbf__comma_separated.dbf", "the reading cuts numbers at the comma"},
    {"olemb_dbfread/examples__files__invalid_value.dbf", "a date of letters"}};

/// Fields that the reading gives as raw bytes and we as what they stand for, or not at all.
bool HasBinaryFields(const DbfTable& table) {
    static const std::string plain = "CNFDL";
    return std::any_of(table.DbfFields().begin(), table.DbfFields().end(), [](const auto& field) {
        return plain.find(field.type) == std::string::npos;
    });
}

class ForeignTables : public testing::TestWithParam<std::string> {};

TEST_P(ForeignTables, AreReadAsOthersReadThem) {
    const json& reading = Readings()[GetParam()];
    DbfTable table(kFolder + GetParam());

    const json& plain = reading["plain"];
    EXPECT_EQ(table.LiveRecords(), plain["records"].get<int>() - plain["flag_star"].get<int>());
    const bool opens = reading["gdal"]["opens"];
    if (opens) {
        EXPECT_EQ(table.LiveRecords(), reading["gdal"]["records_read"]);
    }
    if (kLevel7.contains(GetParam())) return;

    std::size_t index = 0;
    for (const json& field : plain["fields"]) {
        if (!field.is_array()) break;  // "... 29 in all"
        ASSERT_LT(index, table.DbfFields().size());
        const DbfField& ours = table.DbfFields()[index++];
        const std::string name = field[0];
        const bool isAscii = std::all_of(name.begin(), name.end(), [](char c) { return c > 0; });
        if (isAscii) {
            EXPECT_EQ(ours.name, name);
        }
        EXPECT_EQ(std::string(1, ours.type), field[1]);
        // One table keeps the high byte of its text lengths where decimals stand.
        const int length = field[2], decimals = field[3];
        EXPECT_EQ(ours.length + 256 * ours.decimals, length + 256 * decimals);
    }
    if (!opens || HasBinaryFields(table)) return;
    const bool same = HashRecords(table) == reading["gdal"]["records_sha256"];
    EXPECT_EQ(same, !kOtherValues.contains(GetParam()));
}

std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const auto& [name, reading] : Readings().items()) names.push_back(name);
    return names;
}

INSTANTIATE_TEST_SUITE_P(All, ForeignTables, testing::ValuesIn(Names()), [](const auto& test) {
    std::string name = test.param;
    std::replace_if(
        name.begin(), name.end(), [](char c) { return std::isalnum(c) == 0; }, '_');
    return name;
});

TEST(ForeignTablesList, IsComplete) {
    EXPECT_EQ(Names().size(), 98U);
}

struct Spot {
    std::string table;
    int record;
    std::string field;
    host::Variant value;
};

/// Read off the bytes by hand, for what the hashes do not cover.
TEST(ForeignValues, OfFieldsThatOthersLeaveRaw) {
    using S = std::string;
    const std::vector<Spot> spots = {
        {"albfernandez_javadbf/books.dbf", 1, "purchase_p", 23.5},
        {"albfernandez_javadbf/books.dbf", 1, "PAGES", 1012},
        {"albfernandez_javadbf/bdays.dbf", 1, "BDATETIME", S("1942-11-27 10:15:00")},
        {"albfernandez_javadbf/inventory.dbf", 1, "Item ID", 1},
        {"albfernandez_javadbf/inventory.dbf", 2, "Qty", 69},
        {"albfernandez_javadbf/bug-102__bug102.dbf", 2, "DataNumber", 193787},
        {"albfernandez_javadbf/numbers2.dbf", 2, "DOUBLE1", -1},
        {"albfernandez_javadbf/numbers2.dbf", 2, "DOUBLE2", -1},
        {"albfernandez_javadbf/numbers2.dbf", 2, "CURRENCY", -1},
        {"albfernandez_javadbf/fixtures__foxpro-xsource__employees.dbf", 1, "EXTENSION",
         host::Null{}},
        {"albfernandez_javadbf/bug-33-corrupted-file-sync-mode__myfileafter-corrupted.dbf", 1,
         "INV_DATE", S("2017-05-02")},
        {"infused_dbf/dbase_32.dbf", 1, "NAME", S("Bad Meets Evil")},
        {"infused_dbf/dbase_83.dbf", 1, "DESC", host::Null{}},
        {"infused_dbf/dbase_83.dbf", 1, "WEIGHT", 5.51},
        {"infused_dbf/dbase_8b.dbf", 1, "LOGICAL", true},
        {"mbloch_mapshaper/dbf__comma_separated.dbf", 1, "AUGSTUMS", 68.5},
        {"mbloch_mapshaper/dbf__latin1.dbf", 1, "NAME", S("Pe\u00e7e\u00f1a M\u00e9xico")},
        {"mbloch_mapshaper/dbf__cpg__shiftjis.dbf", 1, "NAME",
         S("\u30ab\u30bf\u30ab\u30ca\u3072\u3089\u304c\u306a")},
        {"olemb_dbfread/examples__files__invalid_value.dbf", 1, "BIRTHDATE", host::Null{}},
        {"OSGeo_shapelib/mpatch3.dbf", 1, "LONGFIELD", S("9223372036854775800")},
        {"yellowfeather_DbfDataReader/dbase_03_nullchar.dbf", 2, "TXTCOL", S()},
        {"yellowfeather_DbfDataReader/dbase_31.dbf", 2, "DOUBLE", 33.33},
        {"yellowfeather_DbfDataReader/foxpro_currency_01.dbf", 2, "currencyn", -50}};
    for (const Spot& spot : spots) {
        DbfTable table(kFolder + spot.table);
        const auto cursor = table.Search(nullptr, false);
        auto row = cursor->NextRow();
        while (row->OID() != spot.record) row = cursor->NextRow();
        EXPECT_EQ(row->Value(table.FindField(spot.field)), spot.value)
            << spot.table << " " << spot.field;
    }
}

TEST(ForeignTablesEncoding, IsFoundWhereItIsNamed) {
    const std::vector<std::vector<std::string>> cases = {
        {"mbloch_mapshaper/dbf__cpg__koi8r.dbf", "KOI8-R", ".cpg file"},
        {"mbloch_mapshaper/dbf__cpg__utf16.dbf", "UTF-16", ".cpg file"},
        {"mbloch_mapshaper/dbf__cpg__win1251.dbf", "windows-1251", ".cpg file"},
        {"mbloch_mapshaper/dbf__ldid__chinese.dbf", "GBK", "language driver 0x7A"},
        {"albfernandez_javadbf/continents.dbf", "windows-1252", "language driver 0x57"},
        {"infused_dbf/dbase_8c.dbf", "IBM437", "language driver DB437US0"},
        {"mbloch_mapshaper/dbf__utf8.dbf", "UTF-8", "default (all text is valid UTF-8)"},
        {"mbloch_mapshaper/dbf__latin1.dbf", "windows-1252", "default"}};
    for (const auto& expected : cases) {
        const DbfTable table(kFolder + expected[0]);
        EXPECT_EQ(table.Encoding(), expected[1]) << expected[0];
        EXPECT_EQ(table.EncodingFrom(), expected[2]) << expected[0];
    }
    const DbfTable mazovia(kFolder + "infused_dbf/mazovia.dbf");
    ASSERT_EQ(mazovia.Warnings().size(), 1U);
    EXPECT_NE(mazovia.Warnings()[0].find("language driver 0x69 is not known"), std::string::npos);
    EXPECT_NE(
        DbfTable(kFolder + "albfernandez_javadbf/gbk.dbf").FindField("\u5ba1\u6838\u4fe1\u606f"),
        -1);
}

}  // namespace
}  // namespace desk
