#pragma once

#include <functional>
#include <string>
#include <vector>

#include "gis/module/SourceTable.h"

namespace app {

/// A field of a table to be written; its length follows from its values. A field of texts whose
/// values are numbers is written as one of numbers.
struct OutputField {
    std::string name;
    gis::FieldKind kind = gis::FieldKind::Text;
};

using Values = std::vector<host::Variant>;
using RowTaker = std::function<void(const Values& row)>;
/// Gives all rows in order. Called twice: to measure the rows, and to write them.
using RowSource = std::function<void(const RowTaker& take)>;

struct WrittenTable {
    std::int64_t records = 0;
    std::vector<std::string> warnings;  ///< What did not fit the format, one sentence each.
};

/// Writes a table; the path's ending tells the format: .dbf, .gpkg or .csv. Throws host::Failure
/// and writes nothing if that fails.
WrittenTable WriteTable(const std::string& path, const std::vector<OutputField>& fields,
                        const RowSource& rows);

/// Throws UsageError if the path has none of the endings, or would overwrite one of the sources,
/// and CommandError if there is a file at the path already and force is not given.
void CheckTableOutput(const std::string& path, const std::vector<std::string>& sources, bool force);

}  // namespace app
