#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "gis/module/SourceTable.h"

namespace gis {

/// Makes a table record by record, in memory.
class TableWriter {
public:
    /// Puts the content of a file where it belongs.
    using Store = std::function<void(const std::string& path, std::string_view content)>;

    TableWriter() = default;
    TableWriter(const TableWriter&) = delete;
    TableWriter& operator=(const TableWriter&) = delete;
    virtual ~TableWriter() = default;

    /// Takes a value for each field. Throws for one that the field cannot hold.
    virtual void Add(const std::vector<host::Variant>& values) = 0;
    /// Hands over the table's file, after those that are read with it.
    virtual void Finish(const Store& store) = 0;
};

}  // namespace gis
