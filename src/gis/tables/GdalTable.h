#pragma once

#include <memory>
#include <string>

#include "gis/module/SourceTable.h"

namespace gis {

/// A layer of a source that GDAL reads, without its geometry. Each cursor reads the source from its
/// beginning, in the order in which the source gives the rows. The identifier of a row is the
/// number of its feature, where it fits, as a GIS shows it.
class GdalTable : public SourceTable {
public:
    /// Throws host::Failure with one sentence, as OpenLayerOf does.
    GdalTable(const std::string& source, const std::string& layer, const std::string& where = {});

    host::Ref<host::IHostFields> Fields() const override;
    std::int32_t FindField(const std::string& name) const override;
    /// A cursor throws if the source fails, changes or is no longer what it was.
    host::Ref<host::IHostCursor> Search(const host::Ref<host::IHostQueryFilter>& filter,
                                        bool recycling) override;
    /// 0 if the format has to be read through to know.
    std::int64_t CountRows() const override;
    std::vector<SourceField> SourceFields() const override;
    std::string Encoding() const override { return "UTF-8"; }
    std::string EncodingFrom() const override;
    std::int64_t LiveRecords() const override;
    const TableNotes& Notes() const override;

    /// What the table shares with its cursors.
    struct Shared;

private:
    std::shared_ptr<Shared> shared_;
};

}  // namespace gis
