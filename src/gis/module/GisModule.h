#pragma once

#include <memory>
#include <string>
#include <vector>

#include "gis/module/Locate.h"
#include "gis/module/SourceTable.h"
#include "gis/module/TableWriter.h"

namespace gis {

/// What the library libgazetteer-gdal.so does. It is loaded when a source is first needed that is
/// not dBase, because its libraries are large. All functions throw host::Failure with one sentence
/// that names the source and the fault.
///
/// A source is a file, a folder that is one database (.gdb), or a connection such as
/// "PG:dbname=atlas".
class GisModule {
public:
    GisModule() = default;
    GisModule(const GisModule&) = delete;
    GisModule& operator=(const GisModule&) = delete;
    virtual ~GisModule() = default;

    /// The names of a source's layers, in its order.
    virtual std::vector<std::string> Layers(const std::string& source) = 0;
    /// Opens a layer of a source; an empty name stands for the only one. The SQL condition
    /// selects records; empty: all.
    virtual std::shared_ptr<SourceTable> OpenTable(const std::string& source,
                                                   const std::string& layer,
                                                   const std::string& where = {}) = 0;
    /// Whether a source is one table without geometry, as CreateTable makes them.
    virtual bool IsPlainTable(const std::string& source) = 0;
    /// Begins a table; the ending of the path tells the format: .dbf, .gpkg or .csv.
    virtual std::unique_ptr<TableWriter> CreateTable(const std::string& path,
                                                     const std::vector<SourceField>& fields) = 0;
    /// Finds the sheets and squares in which features lie.
    virtual LocateResult Locate(const LocateJob& job) = 0;
};

/// The library's only entry point: returns the module, which lives as long as the library. The
/// number counts the changes of the classes in this folder.
using GisModuleEntry = GisModule* (*)();
inline constexpr char kGisModuleEntry[] = "GazetteerGisModule1";

}  // namespace gis
