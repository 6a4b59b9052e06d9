#include "desk/mapbook/SeriesFrame.h"

#include <cstddef>

#include "host/Failure.h"

namespace desk {

namespace {

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

}  // namespace desk
