#include "gis_locate/Maps.h"

namespace tests {

Maps::Maps(std::uint32_t seed, const std::vector<int>& systems, int features)
    : random(seed), sheets(random.Sheets(14)) {
    program.Write("atlas.gpkg", random.SheetLayer(sheets));
    for (const int epsg : systems) {
        layers.push_back(random.Features("f" + std::to_string(epsg), features, epsg));
        program.Write("features.gpkg", layers.back());
    }
}

std::vector<std::string> Maps::Arguments(const std::vector<std::string>& more) const {
    std::vector<std::string> arguments;
    for (std::size_t i = 0; i < layers.size(); ++i)
        arguments.insert(arguments.end(), {"features.gpkg/" + layers[i].name, "--set",
                                           "Layer=" + std::to_string(i)});
    arguments.insert(arguments.end(), {"--sheets", "atlas.gpkg"});
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

std::vector<std::string> Maps::InGrid(std::vector<std::string> more) const {
    more.insert(more.end(), {"--grid", std::to_string(kRows) + 'x' + std::to_string(kColumns)});
    return Arguments(more);
}

std::vector<LocatedListing> LocatedIn(const TableRows& rows) {
    std::vector<LocatedListing> listings;
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const auto& row = rows[i];
        std::string key;
        for (std::size_t field = 4; field < row.size(); ++field) key += row[field] + ' ';
        // Names that several listings share have behind them what tells these apart.
        key += row[0].substr(0, row[0].find(" ("));
        if (listings.empty() || listings.back().key != key) listings.push_back({key, {}});
        listings.back().places.emplace_back((std::stoul(row[1]) - 2) / 3, row[2][0] - 'A',
                                            std::stoi(row[3]) - 1);
    }
    return listings;
}

}  // namespace tests
