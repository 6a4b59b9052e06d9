#pragma once

#include <gdal_priv.h>
#include <memory>
#include <ogrsf_frmts.h>
#include <string>
#include <vector>

#include "gis/tables/ServerWatch.h"

namespace gis {

/// Registers GDAL's formats, with the ways to read that suit a table of texts.
void PrepareGdal();

/// Collects what GDAL reports on this thread while the object exists. A server that GDAL waits for
/// meanwhile is watched.
class GdalMessages {
public:
    explicit GdalMessages(std::shared_ptr<ServerWatch> watch = nullptr);
    GdalMessages(const GdalMessages&) = delete;
    GdalMessages& operator=(const GdalMessages&) = delete;
    ~GdalMessages();

    /// The first error, without a full stop; empty if there was none.
    std::string Error() const;
    /// Returns the warnings since the last call, as sentences.
    std::vector<std::string> TakeWarnings();
    /// Throws host::Failure with the error, if there was one.
    void ThrowIfFailed(const std::string& source) const;

private:
    static void Report(CPLErr kind, CPLErrorNum number, const char* text);

    ServerCall call_;
    std::string error_;
    std::vector<std::string> warnings_;
};

struct OpenLayer {
    OpenLayer() = default;
    OpenLayer(OpenLayer&&) = default;
    OpenLayer& operator=(OpenLayer&& other) noexcept;
    ~OpenLayer() { Close(); }

    /// A server is told.
    void Close();

    std::shared_ptr<ServerWatch> watch;  ///< Null for a source that is no server.
    GDALDatasetUniquePtr dataset;
    OGRLayer* layer = nullptr;
};

/// The names of a source's layers, in its order. Throws host::Failure if it cannot be opened.
std::vector<std::string> LayerNames(const std::string& source);

/// Whether a source has one layer, and that no geometry.
bool IsPlainTable(const std::string& source);

/// Opens a layer read-only; an empty name stands for the only one. A connection may name its layer
/// at its end ("PG:dbname=atlas/streets"). The SQL condition selects features; empty: all. Throws
/// host::Failure with one sentence if the source cannot be opened, has no such layer, or has
/// several and none is named, or if the condition is wrong.
OpenLayer OpenLayerOf(const std::string& source, const std::string& layer,
                      const std::string& where);

/// Whether the format knows only texts: the first line of a CSV file has names, but no types; a
/// file .csvt beside it may have them.
bool IsUntyped(const OpenLayer& opened);

}  // namespace gis
