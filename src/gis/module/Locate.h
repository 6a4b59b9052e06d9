#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "gis/module/LeftOut.h"
#include "host/Tables.h"

namespace gis {

/// A layer of a source, and the SQL condition that its features must meet; empty: all.
struct LayerOfSource {
    std::string source;
    std::string layer;
    std::string where;

    std::string Text() const { return layer.empty() ? source : source + '/' + layer; }
};

/// Features that are listed in the index.
struct LocatedLayer : LayerOfSource {
    /// Returns the listing of a feature from its fields. Called in the order of the features, by
    /// the thread that locates.
    std::function<std::string(const host::Ref<host::IHostRow>& feature)> listingOf;
    /// Fields whose values tell features of one name apart; the same number for each layer, empty
    /// names for those that this layer does not have.
    std::vector<std::string> apart;
    /// Layers of one number list together what has one name.
    std::size_t group = 0;
};

/// A grid over the rectangle of each sheet. Rows count from the top, columns from the left.
struct SheetGrid {
    std::int32_t rows = 1;
    std::int32_t columns = 1;
};

/// Squares of one's own instead of a grid: polygons with the labels of row and column.
struct SquareLayer : LayerOfSource {
    std::string rowField;
    std::string columnField;
};

/// Which squares of a sheet a listing refers to.
enum class Squares {
    All,
    Largest,  ///< The one with the longest part of a line, the largest part of an area.
    First     ///< The first in reading order.
};

struct MapPoint {
    double x = 0;
    double y = 0;
};
/// One point stands for a place, several for a line.
using MapLine = std::vector<MapPoint>;

/// The outline of a sheet and its squares.
struct SheetSketch {
    struct Square {
        std::int32_t row = 0;
        std::int32_t column = 0;
        MapLine outline;
    };
    MapLine outline;
    std::vector<Square> squares;  ///< None without a grid.
};

/// A small map of sheets and features, in the reference system of the sheets. Its lines are
/// thinned.
struct MapSketch {
    std::vector<SheetSketch> sheets;  ///< In page order.
    std::vector<MapLine> features;    ///< The first of them, if there are very many.
};

struct LocateJob {
    std::vector<LocatedLayer> features;
    LayerOfSource sheets;
    std::string pageField;
    std::optional<SheetGrid> grid;
    std::optional<SquareLayer> ownSquares;  ///< Not together with a grid.
    Squares squares = Squares::Largest;
    /// Parts of features of one name that lie farther apart are listings of their own; in the unit
    /// of the sheets' reference system. 0: however far.
    double distance = 0;
    std::int32_t threads = 1;
    bool wantsSketch = false;
    /// Called now and then with the number of features read of the layer, from 0, and how many it
    /// has (0: unknown). What it throws ends the work.
    std::function<void(std::size_t layer, std::int64_t read, std::int64_t features)> progress;
};

struct LocatedListing {
    std::string name;
    std::vector<std::string> apart;  ///< Values of the fields that tell it apart.
    std::size_t group = 0;           ///< Of its layers.
    /// Number of the listing among those of one name that lie apart, from 1; 0: it is the only one.
    std::int32_t part = 0;
};

/// A square of a sheet in which a listing lies. Without squares row and column are 0.
struct Reference {
    std::uint32_t listing = 0;
    std::uint32_t sheet = 0;  ///< In page order.
    std::int32_t row = 0;     ///< From 0; an index of LocateResult::rowLabels for squares of one's
                              ///< own.
    std::int32_t column = 0;
};

struct LayerCounts {
    std::int64_t read = 0;
    LeftOut unnamed;
    LeftOut withoutGeometry;
    LeftOut withoutLength;  ///< Lines of one place.
    LeftOut outside;        ///< On no sheet.
    LeftOut inNoSquare;     ///< They touch a sheet, or lie between squares of one's own.
    LeftOut broken;         ///< Geometries that could not be mended or transformed.
    LeftOut mended;         ///< Not left out.
};

struct LocateResult {
    std::vector<LocatedListing> listings;  ///< In the order of the layers and of first appearance.
    std::vector<Reference> references;     ///< By listing, sheet, row and column.
    std::vector<std::string> pages;        ///< Of the sheets, in page order.
    bool isInPageOrder = true;             ///< Whether their layer has them in that order.
    std::vector<std::string> rowLabels;    ///< Of squares of one's own.
    std::vector<std::string> columnLabels;
    std::vector<LayerCounts> counts;       ///< By layer.
    std::vector<std::string> emptySheets;  ///< Pages of sheets without a feature.
    std::vector<std::string> notes;        ///< Sentences about reference systems and the like.
    MapSketch sketch;                      ///< If it is wanted.
};

}  // namespace gis
