#include "desk/mapbook/SeriesManager.h"

#include <cstddef>
#include <filesystem>
#include <memory>

#include "host/Failure.h"

namespace desk {

namespace {

class TableLayer final : public host::IHostIndexLayer {
public:
    explicit TableLayer(host::Ref<host::IHostTable> table) : table_(std::move(table)) {}
    host::Ref<host::IHostTable> Table() const override { return table_; }

private:
    host::Ref<host::IHostTable> table_;
};

const SeriesFrame* SeriesOf(const host::Ref<host::IHostMapFrame>& frame) {
    return dynamic_cast<const SeriesFrame*>(frame.get());
}

[[noreturn]] void Fail(const std::string& sentence) {
    throw host::Failure(host::kFailureNotFound, "desk::SeriesManager", sentence);
}

std::string Label(const std::vector<std::string>& labels, std::int32_t index,
                  const std::string& kind) {
    if (index >= 1 && static_cast<std::size_t>(index) <= labels.size())
        return labels[static_cast<std::size_t>(index) - 1];
    throw host::Failure(host::kFailureNotFound, "desk::IndexGrid",
                        "The index grid has " + std::to_string(labels.size()) + " " + kind +
                            "s and none with the number " + std::to_string(index) + ".");
}

}  // namespace

std::int32_t GridSeriesFrame::Count() const {
    return static_cast<std::int32_t>(GetSeries().grids.size());
}

host::Ref<host::IHostMapGrid> GridSeriesFrame::Item(std::int32_t index) const {
    if (index >= 0 && index < Count()) return GetSeries().grids[static_cast<std::size_t>(index)];
    throw host::Failure(host::kFailureNotFound, "desk::GridSeriesFrame",
                        "The frame \"" + Name() + "\" has no grid " + std::to_string(index) + ".");
}

std::string IndexGrid::RowLabel(std::int32_t index) const {
    return Label(rows_, index, "row");
}

std::string IndexGrid::ColumnLabel(std::int32_t index) const {
    return Label(columns_, index, "column");
}

bool SeriesManager::IsSeriesFrame(const host::Ref<host::IHostMapFrame>& frame) {
    return SeriesOf(frame) != nullptr;
}

bool SeriesManager::HasIndexLayer(const host::Ref<host::IHostMapFrame>& frame) {
    const SeriesFrame* series = SeriesOf(frame);
    return series != nullptr && !series->GetSeries().indexLayer.empty();
}

void SeriesManager::ClearFrame() {
    frame_.reset();
    table_.reset();
    rows_.clear();
    rowsRead_ = false;
}

void SeriesManager::SetFrame(const host::Ref<host::IHostMapFrame>& frame) {
    ClearFrame();
    frame_ = frame;
}

host::Ref<host::IHostIndexLayer> SeriesManager::IndexLayer() {
    return std::make_shared<TableLayer>(Table());
}

host::Variant SeriesManager::FirstPageNumber() {
    return Frame().GetSeries().firstPage;
}

host::Ref<host::IHostRow> SeriesManager::PageFeature(std::int32_t page) {
    if (!rowsRead_) {
        rows_.clear();
        const auto cursor = Table()->Search(nullptr, false);
        while (auto row = cursor->NextRow()) rows_.push_back(std::move(row));
        rowsRead_ = true;
    }
    if (page >= 1 && static_cast<std::size_t>(page) <= rows_.size())
        return rows_[static_cast<std::size_t>(page) - 1];
    const std::filesystem::path layer(LayerSeries().indexLayer);
    host::Failure failure(host::kFailureNotFound, "desk::SeriesManager",
                          "The index layer \"" + layer.filename().string() + "\" of the frame \"" +
                              Frame().Name() + "\" has " + std::to_string(rows_.size()) +
                              " rows and none for page " + std::to_string(page) + ".");
    failure.AddFact("page", std::to_string(page));
    throw failure;
}

const SeriesFrame& SeriesManager::Frame() const {
    if (!frame_) Fail("No map series frame has been set.");
    const SeriesFrame* series = SeriesOf(frame_);
    if (series == nullptr) Fail("The map frame that has been set is no map series frame.");
    return *series;
}

const Series& SeriesManager::LayerSeries() const {
    const SeriesFrame& frame = Frame();
    if (frame.GetSeries().indexLayer.empty())
        Fail("The map series frame \"" + frame.Name() + "\" has no index layer.");
    return frame.GetSeries();
}

const host::Ref<host::IHostTable>& SeriesManager::Table() {
    if (table_) return table_;
    const Series& series = LayerSeries();
    try {
        table_ = opener_(series.indexLayer);
    } catch (const host::Failure& failure) {
        host::Failure told(failure.number, "desk::SeriesManager",
                           "The index layer that the map book \"" + series.book +
                               "\" names for the frame \"" + Frame().Name() +
                               "\" cannot be read: " + failure.cause);
        told.facts = failure.facts;
        throw told;
    }
    return table_;
}

}  // namespace desk
