#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "desk/objects/Elements.h"
#include "host/MapBook.h"

namespace desk {

/// The index layer, first page and grids of a map series frame.
struct Series {
    std::string book;        ///< Path of the map book file.
    std::string indexLayer;  ///< Path of the table, relative to the working directory; empty: none.
    std::int32_t firstPage = 1;
    std::vector<host::Ref<host::IHostMapGrid>> grids;
};

class SeriesFrame : public MapFrame {
public:
    explicit SeriesFrame(Series series) : series_(std::move(series)) {}
    const Series& GetSeries() const { return series_; }

private:
    Series series_;
};

class GridSeriesFrame final : public SeriesFrame, public host::IHostMapGrids {
public:
    using SeriesFrame::SeriesFrame;
    std::int32_t Count() const override;
    /// Throws for an index out of range.
    host::Ref<host::IHostMapGrid> Item(std::int32_t index) const override;
};

/// A grid without labels.
class MapGrid final : public host::IHostMapGrid {
public:
    explicit MapGrid(bool visible) : visible_(visible) {}
    bool Visible() const override { return visible_; }

private:
    bool visible_;
};

class IndexGrid final : public host::IHostIndexGrid {
public:
    IndexGrid(bool visible, std::vector<std::string> rows, std::vector<std::string> columns)
        : visible_(visible), rows_(std::move(rows)), columns_(std::move(columns)) {}

    bool Visible() const override { return visible_; }
    std::int32_t RowCount() const override { return static_cast<std::int32_t>(rows_.size()); }
    std::int32_t ColumnCount() const override { return static_cast<std::int32_t>(columns_.size()); }
    /// Indexes count from 1. Throws for an index out of range.
    std::string RowLabel(std::int32_t index) const override;
    std::string ColumnLabel(std::int32_t index) const override;

private:
    bool visible_;
    std::vector<std::string> rows_;
    std::vector<std::string> columns_;
};

using TableOpener = std::function<host::Ref<host::IHostTable>(const std::string& path)>;

/// Recognises the series frames of map books by their type.
class SeriesManager final : public host::MapSeriesManager {
public:
    explicit SeriesManager(TableOpener opener) : opener_(std::move(opener)) {}

    bool IsSeriesFrame(const host::Ref<host::IHostMapFrame>& frame) override;
    bool HasIndexLayer(const host::Ref<host::IHostMapFrame>& frame) override;
    void ClearFrame() override;
    void SetFrame(const host::Ref<host::IHostMapFrame>& frame) override;

    // The following throw if no series frame is set and, except FirstPageNumber, if it has no index
    // layer.

    host::Ref<host::IHostIndexLayer> IndexLayer() override;
    host::Variant FirstPageNumber() override;
    /// Returns the n-th live row of the index layer's table for series page n, from 1. The rows are
    /// read once per SetFrame. Throws for a page without a row.
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
