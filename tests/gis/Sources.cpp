#include "gis/Sources.h"

#include <cstdlib>
#include <stdexcept>

#include "desk/locale/IcuLocale.h"
#include "desk/tables/TablePath.h"
#include "support/Conversions.h"
#include "support/DbfBuilder.h"

namespace tests {
namespace {

using host::Variant;

// Reads the dBase table with the points of its fields X and Y, and a Boolean, which GDAL does not
// know of dBase, from a field of 0 and 1.
constexpr char kPoints[] = R"(<OGRVRTDataSource><OGRVRTLayer name="names">
<SrcDataSource relativeToVRT="1">names.dbf</SrcDataSource>
<GeometryType>wkbPoint</GeometryType><LayerSRS>EPSG:4326</LayerSRS>
<GeometryField encoding="PointFromColumns" x="X" y="Y"/>
<Field name="Listing"/><Field name="Page" type="Integer"/><Field name="Row" type="Integer"/>
<Field name="Column"/><Field name="Height" type="Real"/><Field name="Big" type="Integer64"/>
<Field name="Founded" type="Date"/>
<Field name="Capital" src="Bit" type="Integer" subtype="Boolean"/>
</OGRVRTLayer></OGRVRTDataSource>)";

}  // namespace

Sources::Sources() {
    support::DbfBuilder({{"Listing", 'C', 60},
                         {"Page", 'N', 4},
                         {"Row", 'N', 4},
                         {"Column", 'C', 5},
                         {"Height", 'N', 12, 3},
                         {"Big", 'N', 17},
                         {"Founded", 'D', 8},
                         {"Capital", 'L', 1},
                         {"Bit", 'N', 1},
                         {"X", 'N', 8, 3},
                         {"Y", 'N', 8, 3}})
        .Row({"Main St", "6", "2", "B", "12.5", "3000000000", "20240229", "T", "1", "1", "50"})
        .Row({"Нижний Новгород", "12", "", "C", "-0.125", "-2147483649", "19030527", "F", "0", "2",
              "51"})
        .Row({"", "", "", "", "", "", "", "", "", "3", "52"})
        .Row({"القاهرة", "7", "1", "A", "1500", "2147483647", "19991231", "", "", "4", "53"})
        .Row({"北京市", "8", "3", "", "0.001", "90071992547409", "20000101", "T", "1", "5", "54"})
        .Row({"Ku\u030Bszo\u0308b \"x\", y", "9999", "-1", "x", "0", "0", "", "F", "0", "6", "55"})
        .Row({"007", "1", "1", "12.50", "1", "1", "20101010", "F", "0", "7", "56"})
        .Row({"1E5", "1", "1", "-5", "-3.25", "-1", "20101010", "F", "0", "8", "57"})
        .Write(File("names.dbf"));
    Write("names.cpg", "UTF-8");
    Write("names.vrt", kPoints);
}

void Sources::Copy(const std::string& driver, const std::string& target,
                   const std::vector<std::string>& options) const {
    CopyTable(File("names.vrt"), driver, target, options);
}

void CopyTable(const std::string& table, const std::string& driver, const std::string& target,
               const std::vector<std::string>& options) {
    std::string command =
        "ogr2ogr -unsetFieldWidth -f '" + driver + "' '" + target + "' '" + table + '\'';
    for (const auto& option : options) command += " '" + option + '\'';
    if (std::system(command.c_str()) != 0) throw std::runtime_error("it failed: " + command);
}

const std::vector<std::string>& FieldsOfNames() {
    static const std::vector<std::string> names = {"Listing", "Page", "Row",     "Column",
                                                   "Height",  "Big",  "Founded", "Capital"};
    return names;
}

Rows RowsOf(gis::SourceTable& table, const std::vector<std::string>& fields) {
    desk::IcuLocale locale("en");
    Rows rows;
    const auto cursor = table.Search(nullptr, true);
    while (const auto row = cursor->NextRow()) {
        Cells cells;
        for (const std::string& field : fields) {
            const std::int32_t index = table.FindField(field);
            if (index < 0) throw std::runtime_error("no field " + field);
            const Variant value = row->Value(index);
            cells.push_back(std::holds_alternative<host::Null>(value)
                                ? std::nullopt
                                : std::optional(gazetteer::ToText(value, locale)));
        }
        rows.push_back(std::move(cells));
    }
    return rows;
}

Rows RowsAt(const std::string& path, const std::vector<std::string>& fields) {
    return RowsOf(*desk::OpenTable(desk::FindTable(path)), fields);
}

std::string Lines(const Rows& rows) {
    std::string lines;
    for (const Cells& cells : rows) {
        for (const auto& cell : cells) lines += cell.value_or("-") + " | ";
        lines += '\n';
    }
    return lines;
}

namespace {

/// The fault; empty if there is none.
std::string Execute(sqlite3* opened, const std::vector<std::string>& statements) {
    for (const std::string& statement : statements)
        if (sqlite3_exec(opened, statement.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            return sqlite3_errmsg(opened);
    return {};
}

}  // namespace

void RunSql(const std::string& file, const std::vector<std::string>& statements) {
    sqlite3* opened = nullptr;
    sqlite3_open(file.c_str(), &opened);
    const std::string fault = Execute(opened, statements);
    sqlite3_close(opened);
    if (!fault.empty()) throw std::runtime_error(file + ": " + fault);
}

SqlLock::SqlLock(const std::string& file) {
    sqlite3_open(file.c_str(), &opened_);
    const std::string fault = Execute(opened_, {"BEGIN EXCLUSIVE"});
    if (!fault.empty()) throw std::runtime_error(file + ": " + fault);
}

SqlLock::~SqlLock() {
    sqlite3_close(opened_);
}

}  // namespace tests
