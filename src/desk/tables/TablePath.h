#pragma once

#include <memory>
#include <string>
#include <vector>

#include "gis/module/SourceTable.h"

namespace desk {

/// Where a table is. A path of a table is that of a dBase file or of another source, the name of a
/// layer behind a source that has several ("streets.gpkg/streets"), or a connection
/// ("PG:dbname=atlas").
struct TablePath {
    std::string source;  ///< File, database folder or connection, in which "/" separates names.
    std::string layer;   ///< Empty: the source is the table or has one layer.

    /// True for what is no file, such as a database server or a path inside an archive.
    bool IsConnection() const;
    bool Exists() const;
    /// The file of the table; empty for a connection.
    std::string File() const { return IsConnection() ? std::string() : source; }
    std::string Text() const { return layer.empty() ? source : source + '/' + layer; }
};

/// The endings of files with tables that people may have, such as ".gpkg", in lower case.
const std::vector<std::string>& TableEndings();
/// Whether a file may have several tables, or a folder is one database, by its ending. Such a path
/// stands before those of its layers.
bool IsContainer(const std::string& path);
/// Whether a path is that of a table: by its ending, as a layer of a source, or as a connection.
bool IsTablePath(const std::string& path);

/// Returns the table that a path means: as given, with "/" for "\", or with another case of its
/// ending; else a table of that name in the second folder, if one is given. The result need not
/// exist.
TablePath FindTable(const std::string& path, const std::string& beside = {});

/// Opens a dBase table, or that of another source by the module for them, which also selects the
/// records that meet an SQL condition; empty: all. Throws host::Failure with one sentence that
/// names the table and the fault.
std::shared_ptr<gis::SourceTable> OpenTable(const TablePath& path, const std::string& where = {});
/// Whether that takes no building of the module first, which is not done unasked.
bool OpensAtOnce(const TablePath& path);

}  // namespace desk
