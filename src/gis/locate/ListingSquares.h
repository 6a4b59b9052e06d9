#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "gis/locate/Locator.h"
#include "gis/module/Locate.h"

namespace gis {

/// Collects the squares of listings from their features, which come in order. Takes memory for the
/// names and their squares, and for a distance also for a rectangle per feature.
class ListingSquares {
public:
    /// The distance is that of the job, between the rectangles around features; 0: none.
    ListingSquares(Squares squares, double distance) : squares_(squares), distance_(distance) {}

    /// Adds a feature that lies in at least one square.
    void Add(std::size_t group, const std::string& name, const std::vector<std::string>& apart,
             const LocatedGeometry& located);
    /// Writes listings and references, and forgets them.
    void MoveTo(LocateResult& result);

private:
    /// Features of one name that are near to each other.
    struct Group {
        std::vector<OGREnvelope> boxes;
        std::vector<SheetSquare> squares;  ///< By sheet, row and column.
        std::vector<SheetSquare> added;  ///< Since they were last merged, in order of the features.

        void Add(const std::vector<SheetSquare>& more);
        void Merge();
    };
    struct Named {
        LocatedListing listing;
        std::vector<Group> groups;
    };
    Group& GroupFor(Named& named, const OGREnvelope& box) const;
    void AddReferences(LocateResult& result, const std::vector<SheetSquare>& squares) const;

    Squares squares_;
    double distance_;
    std::unordered_map<std::string, std::size_t> places_;
    std::vector<Named> named_;
};

}  // namespace gis
