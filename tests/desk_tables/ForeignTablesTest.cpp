#include <algorithm>
#include <fstream>
#include <glib.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "desk/tables/DbfTable.h"
#include "support/FailureOf.h"

namespace desk {
namespace {

using nlohmann::json;

const std::string kFolder = GAZETTEER_SOURCE_DIR "/tests/desk_tables/foreign/";

json ReadingOf(const host::Variant& value, const gis::SourceField& field) {
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
    const auto fields = table.SourceFields();
    const auto cursor = table.Search(nullptr, true);
    while (const auto row = cursor->NextRow()) {
        std::string line;
        std::int32_t index = 0;
        for (const gis::SourceField& field : fields)
            line += (line.empty() ? "" : ", ") + ReadingOf(row->Value(index++), field).dump();
        lines += "[" + line + "]\n";
    }
    const std::unique_ptr<gchar, decltype(&g_free)> digest(
        g_compute_checksum_for_string(G_CHECKSUM_SHA256, lines.data(), std::ssize(lines)), g_free);
    return digest.get();
}

/// Fields that the reading gives as raw bytes and we as what they stand for, or not at all.
bool HasBinaryFields(const DbfTable& table) {
    return std::ranges::any_of(table.SourceFields(), [](const gis::SourceField& field) {
        return std::string("CNFDL").find(field.type) == std::string::npos;
    });
}

void ExpectFields(const DbfTable& table, const json& fields) {
    std::size_t index = 0;
    for (const json& field : fields) {
        if (!field.is_array()) break;  // "... 29 in all"
        ASSERT_LT(index, table.SourceFields().size());
        const gis::SourceField ours = table.SourceFields()[index++];
        const std::string name = field[0];
        const bool isAscii = std::ranges::all_of(name, [](char c) { return c > 0; });
        EXPECT_EQ(isAscii ? ours.name : name, name);
        EXPECT_EQ(json(std::string(1, ours.type)), field[1]);
        EXPECT_EQ(ours.length, field[2]);
        EXPECT_EQ(ours.kind == FieldKind::Number ? json(ours.decimals) : field[3], field[3]);
    }
}

TEST(ForeignTables, AreReadAsOthersReadThem) {
    const json readings = json::parse(std::ifstream(kFolder + "READINGS.json"));
    EXPECT_EQ(readings.size(), 98U);
    for (const auto& [name, reading] : readings.items()) {
        SCOPED_TRACE(name);
        if (reading.contains("refused")) {
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
        ExpectFields(table, plain["fields"]);
        if (!opens) continue;
        EXPECT_EQ(table.LiveRecords(), reading["gdal"]["records_read"]);
        if (HasBinaryFields(table)) continue;
        const bool same =
            HashRecords(table) == reading["gdal"]["records_sha256"].get<std::string>();
        EXPECT_EQ(same, !reading.contains("other_values"));
    }
}

// Read off the bytes by hand, for what the hashes do not cover.
TEST(ForeignTables, AreReadAsTheirBytesTell) {
    const std::pair<std::string, host::Variant> values[] = {
        {"albfernandez_javadbf/bug-33-corrupted-file-sync-mode__myfileafter-corrupted.dbf INV_DATE",
         "2017-05-02"},
        {"infused_dbf/dbase_83.dbf DESC", host::Null{}},
        {"infused_dbf/dbase_83.dbf WEIGHT", 5.51},
        {"infused_dbf/dbase_8b.dbf LOGICAL", true},
        {"mbloch_mapshaper/dbf__cpg__shiftjis.dbf NAME", "カタカナひらがな"}};
    for (const auto& [place, value] : values) {
        const auto blank = place.find(' ');
        DbfTable table(kFolder + place.substr(0, blank));
        const auto row = table.Search(nullptr, false)->NextRow();
        EXPECT_EQ(row->Value(table.FindField(place.substr(blank + 1))), value) << place;
    }
    EXPECT_NE(DbfTable(kFolder + "albfernandez_javadbf/gbk.dbf").FindField("审核信息"), -1);
}

}  // namespace
}  // namespace desk
