#pragma once

#include <memory>
#include <string>
#include <vector>

#include "gis/module/SourceTable.h"

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
    /// Opens "SOURCE/LAYER", or a source alone that has one layer.
    virtual std::shared_ptr<SourceTable> OpenTable(const std::string& source,
                                                   const std::string& layer) = 0;
};

/// The library's only entry point: returns the module, which lives as long as the library. The
/// number counts the changes of the classes in this folder.
using GisModuleEntry = GisModule* (*)();
inline constexpr char kGisModuleEntry[] = "GazetteerGisModule1";

}  // namespace gis
