#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "desk/mapbook/SeriesFrame.h"
#include "host/MapBook.h"

namespace desk {

/// Opens the table in a file.
using TableOpener = std::function<host::Ref<host::IHostTable>(const std::string& path)>;

/// Knows the series frames of map books by their type.
class SeriesManager final : public host::MapSeriesManager {
public:
    explicit SeriesManager(TableOpener opener) : opener_(std::move(opener)) {}

    bool IsSeriesFrame(const host::Ref<host::IHostMapFrame>& frame) override;
    bool HasIndexLayer(const host::Ref<host::IHostMapFrame>& frame) override;
    void ClearFrame() override;
    void SetFrame(const host::Ref<host::IHostMapFrame>& frame) override;

    // The following fail where no series frame is set, and, but for the first page's number,
    // where it has no index layer.

    host::Ref<host::IHostIndexLayer> IndexLayer() override;
    host::Variant FirstPageNumber() override;
    /// The row of series page n is the n-th live row of the index layer's table, from 1. The rows
    /// are read once for each SetFrame. Fails for a page without a row.
    host::Ref<host::IHostRow> PageFeature(std::int32_t page) override;

private:
    const SeriesFrame& Frame() const;
    const Series& LayerSeries() const;
    const host::Ref<host::IHostTable>& Table();

    TableOpener opener_;
    host::Ref<host::IHostMapFrame> frame_;
    host::Ref<host::IHostTable> table_;
    std::vector<host::Ref<host::IHostRow>> rows_;
    bool rowsRead_ = false;
};

}  // namespace desk
