#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "gis/locate/Locator.h"
#include "gis/module/Locate.h"

namespace gis {

/// Collects the squares of listings from their features, which come in order. Takes memory for the
/// names and their squares, and for a distance also for the parts of the features.
class ListingSquares {
public:
    /// The distance is that of the job; 0: none.
    ListingSquares(Squares squares, double distance) : squares_(squares), distance_(distance) {}

    /// Adds a feature that lies in at least one square. For a distance its parts have shapes.
    void Add(std::size_t group, const std::string& name, const std::vector<std::string>& apart,
             std::vector<LocatedPart> parts);
    /// Writes listings and references, and forgets them.
    void MoveTo(LocateResult& result);

private:
    /// The squares of what is listed together.
    struct Sum {
        std::vector<SheetSquare> squares;  ///< By sheet, row and column.
        std::vector<SheetSquare> added;  ///< Since they were last merged, in order of the features.

        void Add(const std::vector<SheetSquare>& more);
        void Merge();
    };
    struct Named {
        LocatedListing listing;
        Sum sum;
        std::vector<LocatedPart> parts;  ///< Instead of the sum, for a distance.
    };
    std::vector<Sum> SumsOf(Named& named) const;
    void AddReferences(LocateResult& result, const std::vector<SheetSquare>& squares) const;

    Squares squares_;
    double distance_;
    std::unordered_map<std::string, std::size_t> places_;
    std::vector<Named> named_;
};

}  // namespace gis
