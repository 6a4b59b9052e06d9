#pragma once

#include "gis_locate/Comparison.h"
#include "gis_locate/GisProgram.h"

namespace tests {

inline constexpr int kRows = 5;
inline constexpr int kColumns = 7;

/// A random map with a layer of features per reference system.
struct Maps {
    Maps(std::uint32_t seed, const std::vector<int>& systems, int features);

    /// The features of all layers, each with its number as a constant, on the sheets.
    std::vector<std::string> Arguments(const std::vector<std::string>& more) const;
    /// As Arguments, in a grid.
    std::vector<std::string> InGrid(std::vector<std::string> more) const;
    /// What SQL reads in the grid.
    std::vector<std::vector<Extents>> ReadGrid() const {
        return ReadBySql(program.Path(), layers, RandomMap::Cells(sheets, kRows, kColumns));
    }
    /// The value of a feature's field.
    const std::string& Value(std::size_t layer, std::size_t feature, std::size_t field) const {
        return layers[layer].features[feature].values[field];
    }
    /// The number of the layer, and the name.
    std::string NameOf(std::size_t layer, std::size_t feature) const {
        return std::to_string(layer) + ' ' + Value(layer, feature, 0);
    }

    GisProgram program;
    RandomMap random;
    std::vector<RandomSheet> sheets;
    std::vector<Layer> layers;
};

/// The listings of a table. The key of one is what stands behind its column, then its name.
std::vector<LocatedListing> LocatedIn(const TableRows& rows);

}  // namespace tests
