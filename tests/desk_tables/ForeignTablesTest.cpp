#include <algorithm>
#include <fstream>
#include <glib.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "desk/tables/DbfTable.h"
#include "support/FailureOf.h"

namespace desk {
namespace {

using nlohmann::json;

const std::string kFolder = GAZETTEER_SOURCE_DIR "/tests/desk_tables/foreign/";

json ReadingOf(const host::Variant& value, const DbfField& field) {
    const auto* text = std::get_if<std::string>(&value);
    const auto* whole = std::get_if<std::int32_t>(&value);
    if (std::holds_alternative<host::Null>(value) || (text != nullptr && text->empty()))
        return nullptr;
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "T" : "F";
    if (field.type == 'N' || field.type == 'F') {
        const bool isInteger = field.decimals == 0 && field.length < 19;
        if (isInteger && text != nullptr) return std::stoll(*text);
        const double number = whole ? *whole : text ? std::stod(*text) : std::get<double>(value);
        return isInteger ? json(static_cast<std::int64_t>(number)) : json(number);
    }
    if (text == nullptr) return "";
    std::string shown = text->substr(std::min(text->find_first_not_of(' '), text->size()));
    if (field.type == 'D') shown[4] = shown[7] = '/';
    return shown;
}

/// SHA-256 of a table's records in the form that READINGS.json has hashed: each record a JSON list
/// and a line feed, ", " between values, blank text null, numbers with decimals or of 19
/// digits and more as floats, dates with slashes.
std::string HashRecords(DbfTable& table) {
    std::string lines;
    const auto cursor = table.Search(nullptr, true);
    while (const auto row = cursor->NextRow()) {
        std::string line;
        std::int32_t index = 0;
        for (const DbfField& field : table.DbfFields()) {
            line += (index == 0 ? "" : ", ") + ReadingOf(row->Value(index), field).dump();
            ++index;
        }
        lines += "[" + line + "]\n";
    }
    gchar* digest = g_compute_checksum_for_data(
        G_CHECKSUM_SHA256, reinterpret_cast<const guchar*>(lines.data()), lines.size());
    std::string hash = digest;
    g_free(digest);
    return hash;
}

/// Tables of level 7, and such with kinds of fields that FoxPro has added.
const std::set<std::string> kRefused = {
    "albfernandez_javadbf/bdays.dbf",
    "albfernandez_javadbf/books.dbf",
    "albfernandez_javadbf/bug-102__bug102.dbf",
    "albfernandez_javadbf/bug-56-index-out-of-bounds__56-testdata.dbf",
    "albfernandez_javadbf/bug93_null_field__testfile.dbf",
    "albfernandez_javadbf/fixtures__dbase_7.dbf",
    "albfernandez_javadbf/fixtures__foxpro-xsource__employees.dbf",
    "albfernandez_javadbf/fixtures__foxpro-xsource__payments.dbf",
    "albfernandez_javadbf/inventory.dbf",
    "albfernandez_javadbf/numbers2.dbf",
    "albfernandez_javadbf/test_delete.dbf",
    "infused_dbf/dbase_30.dbf",
    "infused_dbf/dbase_31.dbf",
    "infused_dbf/dbase_32.dbf",
    "infused_dbf/dbase_8c.dbf",
    "infused_dbf/foxprodb__FOXPRO-DB-TEST.DBC",
    "infused_dbf/foxprodb__calls.dbf",
    "infused_dbf/foxprodb__contacts.dbf",
    "infused_dbf/foxprodb__setup.dbf",
    "infused_dbf/foxprodb__types.dbf",
    "yellowfeather_DbfDataReader/FolderRoot.dbf",
    "yellowfeather_DbfDataReader/dbase_31.dbf",
    "yellowfeather_DbfDataReader/foxpro_currency_01.dbf"};

/// Tables whose values are not those of the reading, by what the reading does.
const std::set<std::string> kOtherValues = {
    // It takes header bytes for the record.
    "albfernandez_javadbf/bug-33-corrupted-file-sync-mode__myfileafter-corrupted.dbf",
    // It cuts numbers at the comma.
    "mbloch_mapshaper/dbf__comma_separated.dbf",
    // It gives a date of letters.
    "olemb_dbfread/examples__files__invalid_value.dbf",
    // It leaves text undecoded.
    "albfernandez_javadbf/bug-46-zero_field_count__a3.dbf",
    "albfernandez_javadbf/bug-60-fieldlength__060.dbf", "infused_dbf/mazovia.dbf",
    "mbloch_mapshaper/dbf__big5.dbf", "mbloch_mapshaper/dbf__cpg__shiftjis.dbf",
    "mbloch_mapshaper/dbf__eucjp.dbf", "mbloch_mapshaper/dbf__gb2312.dbf",
    "mbloch_mapshaper/dbf__gbk.dbf", "mbloch_mapshaper/dbf__latin1.dbf",
    "mbloch_mapshaper/dbf__periphereies.dbf", "mbloch_mapshaper/dbf__shiftjis.dbf",
    "GeospatialPython_pyshp/latin1.dbf", "yellowfeather_DbfDataReader/MS__KHDM.DBF"};

/// Fields that the reading gives as raw bytes and we as what they stand for, or not at all.
bool HasBinaryFields(const DbfTable& table) {
    return std::ranges::any_of(table.DbfFields(), [](const DbfField& field) {
        return std::string("CNFDL").find(field.type) == std::string::npos;
    });
}

void ExpectFields(const DbfTable& table, const json& fields) {
    std::size_t index = 0;
    for (const json& field : fields) {
        if (!field.is_array()) break;  // "... 29 in all"
        ASSERT_LT(index, table.DbfFields().size());
        const DbfField& ours = table.DbfFields()[index++];
        const std::string name = field[0];
        if (std::ranges::all_of(name, [](char c) { return c > 0; })) {
            EXPECT_EQ(ours.name, name);
        }
        EXPECT_EQ(std::string(1, ours.type), field[1]);
        EXPECT_EQ(ours.length, field[2]);
        if (ours.kind == DbfKind::Number) {
            EXPECT_EQ(ours.decimals, field[3]);
        }
    }
}

TEST(ForeignTables, AreReadAsOthersReadThem) {
    const json readings = json::parse(std::ifstream(kFolder + "READINGS.json"));
    EXPECT_EQ(readings.size(), 98U);
    for (const auto& [name, reading] : readings.items()) {
        SCOPED_TRACE(name);
        if (kRefused.contains(name)) {
            const std::string refusal =
                support::FailureOf([&] { DbfTable(kFolder + name); }).description;
            EXPECT_TRUE(refusal.starts_with(kFolder + name)) << refusal;
            EXPECT_NE(refusal.find("save it as dBase III or IV"), std::string::npos) << refusal;
            continue;
        }
        DbfTable table(kFolder + name);
        const json& plain = reading["plain"];
        EXPECT_EQ(table.LiveRecords(), plain["records"].get<int>() - plain["flag_star"].get<int>());
        const bool opens = reading["gdal"]["opens"];
        if (opens) {
            EXPECT_EQ(table.LiveRecords(), reading["gdal"]["records_read"]);
        }
        ExpectFields(table, plain["fields"]);
        if (!opens || HasBinaryFields(table)) continue;
        const bool same = HashRecords(table) == reading["gdal"]["records_sha256"];
        EXPECT_EQ(same, !kOtherValues.contains(name));
    }
}

/// Read off the bytes by hand, for what the hashes do not cover.
TEST(ForeignValues, OfFieldsThatOthersLeaveRaw) {
    const std::tuple<const char*, int, const char*, host::Variant> spots[] = {
        {"albfernandez_javadbf/bug-33-corrupted-file-sync-mode__myfileafter-corrupted.dbf", 1,
         "INV_DATE", "2017-05-02"},
        {"infused_dbf/dbase_83.dbf", 1, "DESC", host::Null{}},
        {"infused_dbf/dbase_83.dbf", 1, "WEIGHT", 5.51},
        {"infused_dbf/dbase_8b.dbf", 1, "LOGICAL", true},
        {"mbloch_mapshaper/dbf__comma_separated.dbf", 1, "AUGSTUMS", 68.5},
        {"mbloch_mapshaper/dbf__latin1.dbf", 1, "NAME", "Peçeña México"},
        {"mbloch_mapshaper/dbf__cpg__shiftjis.dbf", 1, "NAME", "カタカナひらがな"},
        {"olemb_dbfread/examples__files__invalid_value.dbf", 1, "BIRTHDATE", host::Null{}},
        {"OSGeo_shapelib/mpatch3.dbf", 1, "LONGFIELD", "9223372036854775800"},
        {"yellowfeather_DbfDataReader/dbase_03_nullchar.dbf", 2, "TXTCOL", ""}};
    for (const auto& [name, record, field, value] : spots) {
        DbfTable table(kFolder + name);
        const auto cursor = table.Search(nullptr, false);
        auto row = cursor->NextRow();
        while (row->OID() != record) row = cursor->NextRow();
        EXPECT_EQ(row->Value(table.FindField(field)), value) << name << " " << field;
    }
}

TEST(ForeignTablesEncoding, IsFoundWhereItIsNamed) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"mbloch_mapshaper/dbf__cpg__utf16.dbf", "UTF-16", ".cpg file"},
        {"mbloch_mapshaper/dbf__ldid__chinese.dbf", "GBK", "language driver 0x7A"},
        {"mbloch_mapshaper/dbf__utf8.dbf", "UTF-8", "default (all text is valid UTF-8)"},
        {"mbloch_mapshaper/dbf__latin1.dbf", "windows-1252", "default"}};
    for (const auto& [name, encoding, from] : cases) {
        const DbfTable table(kFolder + name);
        EXPECT_EQ(table.Encoding(), encoding) << name;
        EXPECT_EQ(table.EncodingFrom(), from) << name;
    }
    const DbfTable mazovia(kFolder + "infused_dbf/mazovia.dbf");
    ASSERT_EQ(mazovia.Warnings().size(), 1U);
    EXPECT_NE(mazovia.Warnings()[0].find("language driver 0x69 is not known"), std::string::npos);
    EXPECT_NE(DbfTable(kFolder + "albfernandez_javadbf/gbk.dbf").FindField("审核信息"), -1);
}

}  // namespace
}  // namespace desk
