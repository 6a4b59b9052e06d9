#include "gis/locate/ListingSquares.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>
#include <utility>

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

double DistanceBetween(const OGREnvelope& one, const OGREnvelope& other) {
    const double across = std::max({0.0, one.MinX - other.MaxX, other.MinX - one.MaxX});
    const double along = std::max({0.0, one.MinY - other.MaxY, other.MinY - one.MaxY});
    return std::hypot(across, along);
}

}  // namespace

// Adding costs the logarithm of the number of squares, so that many features may share a name.
void ListingSquares::Group::Add(const std::vector<SheetSquare>& more) {
    if (squares.empty()) {
        squares = more;
        return;
    }
    added.insert(added.end(), more.begin(), more.end());
    if (added.size() >= squares.size()) Merge();
}

void ListingSquares::Group::Merge() {
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
    added = {};
}

void ListingSquares::Add(std::size_t group, const std::string& name,
                         const std::vector<std::string>& apart, const LocatedGeometry& located) {
    std::string key = std::to_string(group) + '\0' + name;
    for (const auto& value : apart) key += '\0' + value;
    const auto [place, isNew] = places_.try_emplace(key, named_.size());
    if (isNew) named_.push_back({{name, apart, group, 0}, {}});
    GroupFor(named_[place->second], located.box).Add(located.squares);
}

ListingSquares::Group& ListingSquares::GroupFor(Named& named, const OGREnvelope& box) const {
    if (distance_ <= 0) {
        if (named.groups.empty()) named.groups.emplace_back();
        return named.groups.front();
    }
    const auto isNear = [&](const Group& group) {
        return std::ranges::any_of(group.boxes, [&](const OGREnvelope& other) {
            return DistanceBetween(box, other) <= distance_;
        });
    };
    const auto first = std::ranges::find_if(named.groups, isNear);
    if (first == named.groups.end()) {
        named.groups.push_back({{box}, {}, {}});
        return named.groups.back();
    }
    first->boxes.push_back(box);
    // The feature may join groups that were apart.
    for (auto other = std::next(first); other != named.groups.end();) {
        if (!isNear(*other)) {
            ++other;
            continue;
        }
        first->boxes.insert(first->boxes.end(), other->boxes.begin(), other->boxes.end());
        other->Merge();
        first->Add(other->squares);
        other = named.groups.erase(other);
    }
    return *first;
}

void ListingSquares::MoveTo(LocateResult& result) {
    for (auto& named : named_) {
        const bool isOne = named.groups.size() == 1;
        for (auto& group : named.groups) {
            group.Merge();
            result.listings.push_back(named.listing);
            named.listing.part += isOne ? 0 : 1;
            result.listings.back().part = named.listing.part;
            AddReferences(result, group.squares);
        }
        named.groups.clear();
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
