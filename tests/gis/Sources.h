#pragma once

#include <optional>
#include <sqlite3.h>
#include <string>
#include <vector>

#include "gis/module/SourceTable.h"
#include "support/TemporaryFolder.h"

namespace tests {

/// The texts of a row as a gazetteer shows them; nothing for null.
using Cells = std::vector<std::optional<std::string>>;
using Rows = std::vector<Cells>;

/// A folder with the dBase table names.dbf, whose rows have points, and copies of it that ogr2ogr
/// wrote.
class Sources : public support::TemporaryFolder {
public:
    Sources();

    /// Writes the table by GDAL's driver, to a path or a connection, with ogr2ogr's options. Texts
    /// are as GDAL reads them: without blanks at both ends.
    void Copy(const std::string& driver, const std::string& target,
              const std::vector<std::string>& options = {}) const;
};

/// The same with a table of any format, without points.
void CopyTable(const std::string& table, const std::string& driver, const std::string& target,
               const std::vector<std::string>& options = {});

/// The fields that each copy has, in their order.
const std::vector<std::string>& FieldsOfNames();

/// Opens a table as all commands do, and returns its fields of these names. Throws host::Failure.
Rows RowsOf(gis::SourceTable& table, const std::vector<std::string>& fields);
Rows RowsAt(const std::string& path, const std::vector<std::string>& fields = FieldsOfNames());

/// A line for each row, with "-" for null.
std::string Lines(const Rows& rows);

/// Runs statements on a file of SQLite; throws if one fails.
void RunSql(const std::string& file, const std::vector<std::string>& statements);

/// Holds a file of SQLite, so that no one else can read it.
class SqlLock {
public:
    explicit SqlLock(const std::string& file);
    ~SqlLock();
    SqlLock(const SqlLock&) = delete;
    SqlLock& operator=(const SqlLock&) = delete;

private:
    sqlite3* opened_ = nullptr;
};

}  // namespace tests
