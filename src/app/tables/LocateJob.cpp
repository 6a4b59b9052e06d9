#include "app/tables/LocateJob.h"

#include <algorithm>
#include <charconv>
#include <thread>

#include "app/document/Errors.h"
#include "desk/tables/TablePath.h"

namespace app {
namespace {

constexpr std::int32_t kMostSquares = 1000;  // Of a row or a column of the grid.

[[noreturn]] void FailGrid(const std::string& grid) {
    throw UsageError("--grid " + Shown(grid) +
                     ": a grid is given as ROWSxCOLUMNS, such as 8x10, with at most 1000 of each.");
}

std::int32_t ParseSide(const std::string& grid, std::string_view text) {
    std::int32_t number = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
    if (parsed.ec != std::errc() || parsed.ptr != text.data() + text.size() || number < 1 ||
        number > kMostSquares)
        FailGrid(grid);
    return number;
}

Labels LabelsFor(const std::string& option, const std::string& text, bool areLetters,
                 std::int32_t count, const LocateOptions& options, bool reversed) {
    auto labels =
        ParseLabels(option, text.empty() ? DefaultLabels(count, areLetters, options.leftOut) : text,
                    options.leftOut);
    if (count > 0 && std::ssize(labels) != count)
        throw UsageError(option + ' ' + Shown(text) + ": these are " +
                         std::to_string(labels.size()) + " labels, but the grid " + options.grid +
                         " has " + std::to_string(count) + '.');
    if (reversed) std::ranges::reverse(labels);
    return labels;
}

gis::Squares SquaresOf(const std::string& name) {
    if (name == "all") return gis::Squares::All;
    return name == "first" ? gis::Squares::First : gis::Squares::Largest;
}

}  // namespace

gis::LayerOfSource LayerAt(const std::string& path) {
    const auto found = desk::FindTable(path);
    if (!found.Exists()) throw CommandError("There is no file " + path + '.');
    return {found.source, found.layer, {}};
}

GridLabels GridOf(const LocateOptions& options) {
    const bool hasLabels = !options.rowLabels.empty() || !options.columnLabels.empty();
    if (!options.cells.empty()) {
        if (hasLabels || !options.grid.empty())
            throw UsageError(
                "--cells brings the labels of its squares; --grid, "
                "--row-labels and --column-labels do not go with it.");
        return {};
    }
    if (options.grid.empty() && !hasLabels) {
        if (options.origin != "top-left" || !options.leftOut.empty())
            throw UsageError("--origin and --leave-out go with --grid or with labels.");
        return {};
    }
    std::int32_t rows = 0;
    std::int32_t columns = 0;
    if (!options.grid.empty()) {
        const auto cross = options.grid.find_first_of("xX");
        if (cross == std::string::npos) FailGrid(options.grid);
        rows = ParseSide(options.grid, std::string_view(options.grid).substr(0, cross));
        columns = ParseSide(options.grid, std::string_view(options.grid).substr(cross + 1));
    } else if (options.rowLabels.empty() || options.columnLabels.empty()) {
        throw UsageError(
            "A grid needs --grid ROWSxCOLUMNS, or the labels of both its rows and its "
            "columns.");
    }
    return {LabelsFor("--row-labels", options.rowLabels, true, rows, options,
                      options.origin.starts_with("bottom")),
            LabelsFor("--column-labels", options.columnLabels, false, columns, options,
                      options.origin.ends_with("right"))};
}

gis::LocateJob JobOf(const LocateOptions& options, const GridLabels& grid) {
    gis::LocateJob job;
    job.sheets = LayerAt(options.sheets);
    job.pageField = options.page;
    if (!grid.rows.empty())
        job.grid = gis::SheetGrid{static_cast<std::int32_t>(grid.rows.size()),
                                  static_cast<std::int32_t>(grid.columns.size())};
    if (!options.cells.empty())
        job.ownSquares =
            gis::SquareLayer{LayerAt(options.cells), options.cellRow, options.cellColumn};
    job.squares = SquaresOf(options.squares);
    job.distance = options.distance;
    job.wantsSketch = options.wantsSketch;
    const auto cores = static_cast<std::int32_t>(std::thread::hardware_concurrency());
    job.threads = options.threads > 0 ? options.threads : std::max(1, cores);
    return job;
}

}  // namespace app
