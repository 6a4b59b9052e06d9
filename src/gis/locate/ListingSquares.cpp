#include "gis/locate/ListingSquares.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>
#include <utility>

#include "gis/locate/Clusters.h"

namespace gis {
namespace {

auto PlaceOf(const SheetSquare& square) {
    return std::tuple(square.sheet, square.square.row, square.square.column);
}

/// Returns the first of those that are as large as the largest. Equal parts of a line on both sides
/// of a border differ by rounding.
template <class Iterator>
Iterator Largest(Iterator first, Iterator last) {
    constexpr double kRounding = 1e-9;
    const auto sizeOf = [](const SheetSquare& square) {
        return std::pair(square.square.dimension, square.square.extent);
    };
    const auto most =
        sizeOf(*std::max_element(first, last, [&](const auto& one, const auto& other) {
            return sizeOf(one) < sizeOf(other);
        }));
    return std::find_if(first, last, [&](const SheetSquare& square) {
        return square.square.dimension == most.first &&
               square.square.extent >= most.second * (1 - kRounding);
    });
}

}  // namespace

// Adding costs the logarithm of the number of squares, so that many features may share a name.
void ListingSquares::Sum::Add(const std::vector<SheetSquare>& more) {
    if (squares.empty()) {
        squares = more;
        return;
    }
    added.insert(added.end(), more.begin(), more.end());
    if (added.size() >= squares.size()) Merge();
}

void ListingSquares::Sum::Merge() {
    if (added.empty()) return;
    std::ranges::stable_sort(added, {}, PlaceOf);
    std::vector<SheetSquare> merged;
    merged.reserve(squares.size() + added.size());
    std::ranges::merge(squares, added, std::back_inserter(merged), {}, PlaceOf, PlaceOf);
    std::size_t kept = 0;
    for (std::size_t i = 1; i < merged.size(); ++i)
        if (PlaceOf(merged[i]) == PlaceOf(merged[kept]))
            merged[kept].square.Add(merged[i].square);
        else
            merged[++kept] = merged[i];
    merged.resize(merged.empty() ? 0 : kept + 1);
    merged.shrink_to_fit();
    squares = std::move(merged);
    added = std::vector<SheetSquare>();
}

void ListingSquares::Add(std::size_t group, const std::string& name,
                         const std::vector<std::string>& apart, std::vector<LocatedPart> parts) {
    std::string key = std::to_string(group) + '\0' + name;
    for (const auto& value : apart) key += '\0' + value;
    const auto [place, isNew] = places_.try_emplace(key, named_.size());
    if (isNew) named_.push_back({{name, apart, group, 0}, {}, {}});
    Named& named = named_[place->second];
    if (distance_ > 0)
        std::ranges::move(parts, std::back_inserter(named.parts));
    else
        for (const auto& part : parts) named.sum.Add(part.squares);
}

std::vector<ListingSquares::Sum> ListingSquares::SumsOf(Named& named) const {
    std::vector<Sum> sums;
    if (distance_ <= 0) {
        sums.push_back(std::move(named.sum));
    } else {
        std::vector<const OGRGeometry*> shapes;
        for (const auto& part : named.parts) shapes.push_back(part.shape.get());
        const auto clusters = ClustersOf(shapes, distance_);
        for (std::size_t i = 0; i < clusters.size(); ++i) {
            if (clusters[i] == sums.size()) sums.emplace_back();
            sums[clusters[i]].Add(named.parts[i].squares);
        }
        named.parts = std::vector<LocatedPart>();  // Frees its memory, unlike empty braces.
    }
    for (auto& sum : sums) sum.Merge();
    return sums;
}

void ListingSquares::MoveTo(LocateResult& result) {
    for (auto& named : named_) {
        const auto sums = SumsOf(named);
        for (std::size_t i = 0; i < sums.size(); ++i) {
            result.listings.push_back(named.listing);
            result.listings.back().part = sums.size() == 1 ? 0 : static_cast<std::int32_t>(i) + 1;
            AddReferences(result, sums[i].squares);
        }
    }
    named_.clear();
    places_.clear();
}

void ListingSquares::AddReferences(LocateResult& result,
                                   const std::vector<SheetSquare>& squares) const {
    const auto listing = static_cast<std::uint32_t>(result.listings.size()) - 1;
    for (auto first = squares.begin(); first != squares.end();) {
        const auto last = std::find_if(first, squares.end(), [&](const SheetSquare& square) {
            return square.sheet != first->sheet;
        });
        const auto from = squares_ == Squares::Largest ? Largest(first, last) : first;
        const auto to = squares_ == Squares::All ? last : std::next(from);
        for (auto square = from; square != to; ++square)
            result.references.push_back(
                {listing, square->sheet, square->square.row, square->square.column});
        first = last;
    }
}

}  // namespace gis
