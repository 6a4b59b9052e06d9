#include "gis/locate/Clusters.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <numeric>

#include "gis/locate/Geos.h"

namespace gis {
namespace {

using Boxes = std::vector<OGREnvelope>;

double DistanceBetween(const OGREnvelope& one, const OGREnvelope& other) {
    const double across = std::max({0.0, one.MinX - other.MaxX, other.MinX - one.MaxX});
    const double along = std::max({0.0, one.MinY - other.MaxY, other.MinY - one.MaxY});
    return std::hypot(across, along);
}

/// The largest distance between places of two boxes.
double Span(OGREnvelope one, const OGREnvelope& other) {
    one.Merge(other);
    return std::hypot(one.MaxX - one.MinX, one.MaxY - one.MinY);
}

/// Whether a shape fills its box: a point, or a line along an axis.
bool IsFilled(const OGREnvelope& box) {
    return box.MinX == box.MaxX || box.MinY == box.MaxY;
}

/// A tree of boxes from which those that are near to a box are taken out. A search does not enter
/// branches from which all is taken, so that many boxes in one place cost no more than others. The
/// trees of GEOS go through all entries that a rectangle meets.
class BoxTree {
public:
    explicit BoxTree(const Boxes& boxes) : boxes_(boxes), order_(boxes.size()) {
        std::iota(order_.begin(), order_.end(), 0);
        Build(0, order_.size());
    }

    using Take = std::function<bool(std::size_t number)>;
    /// Offers the boxes that are left within a distance of one; true from the function takes one
    /// out.
    void Offer(const OGREnvelope& box, double distance, const Take& take) {
        OfferIn(0, {box, distance, take});
    }

private:
    static constexpr std::size_t kLeaf = 8;

    struct Node {
        OGREnvelope box;
        std::size_t first = 0;   ///< In the order; in a leaf those that are left stand first.
        std::size_t left = 0;    ///< Number of boxes that are left.
        std::size_t second = 0;  ///< The second branch, the first one being the next node; 0: leaf.
    };
    struct Search {
        const OGREnvelope& box;
        double distance;
        const Take& take;
    };

    std::size_t Build(std::size_t first, std::size_t last) {
        const std::size_t number = nodes_.size();
        Node node;
        node.first = first;
        node.left = last - first;
        for (std::size_t i = first; i < last; ++i) node.box.Merge(boxes_[order_[i]]);
        nodes_.push_back(node);
        if (node.left <= kLeaf) return number;
        const bool isWide = node.box.MaxX - node.box.MinX > node.box.MaxY - node.box.MinY;
        const auto middleOf = [&](std::size_t i) {
            const auto& box = boxes_[i];
            return isWide ? box.MinX + box.MaxX : box.MinY + box.MaxY;
        };
        const auto at = [&](std::size_t i) {
            return order_.begin() + static_cast<std::ptrdiff_t>(i);
        };
        const std::size_t half = first + (last - first) / 2;
        std::ranges::nth_element(at(first), at(half), at(last), {}, middleOf);
        Build(first, half);
        nodes_[number].second = Build(half, last);
        return number;
    }

    /// Returns how many were taken.
    std::size_t OfferIn(std::size_t number, const Search& search) {
        Node& node = nodes_[number];
        if (node.left == 0 || DistanceBetween(node.box, search.box) > search.distance) return 0;
        const std::size_t before = node.left;
        if (node.second != 0)
            node.left -= OfferIn(number + 1, search) + OfferIn(node.second, search);
        else
            for (std::size_t i = node.first; i < node.first + node.left;)
                if (DistanceBetween(boxes_[order_[i]], search.box) <= search.distance &&
                    search.take(order_[i]))
                    std::swap(order_[i], order_[node.first + --node.left]);
                else
                    ++i;
        return before - node.left;
    }

    const Boxes& boxes_;
    std::vector<std::size_t> order_;
    std::vector<Node> nodes_;
};

/// Tells whether shapes are near to one of them, which is prepared when it is first needed.
class Neighbourhood {
public:
    Neighbourhood(const std::vector<const OGRGeometry*>& shapes, const Boxes& boxes,
                  double distance)
        : shapes_(shapes), boxes_(boxes), distance_(distance), copies_(shapes.size()) {}

    void Around(std::size_t centre) {
        centre_ = centre;
        prepared_.reset();
    }
    /// Takes a shape whose box is near.
    bool IsNear(std::size_t other) {
        if (Span(boxes_[centre_], boxes_[other]) <= distance_) return true;
        if (IsFilled(boxes_[centre_]) && IsFilled(boxes_[other])) return true;
        if (!prepared_) prepared_ = geos_.Prepare(CopyOf(centre_));
        // GEOS gives 2 if it fails, and the boxes are near.
        return GEOSPreparedDistanceWithin_r(geos_.Context(), prepared_.get(), CopyOf(other).get(),
                                            distance_) != 0;
    }

private:
    const Geos::Geometry& CopyOf(std::size_t number) {
        auto& copy = copies_[number];
        if (!copy) copy = geos_.Copy(*shapes_[number]);
        return copy;
    }

    const std::vector<const OGRGeometry*>& shapes_;
    const Boxes& boxes_;
    double distance_;
    Geos geos_;
    std::vector<Geos::Geometry> copies_;
    std::size_t centre_ = 0;
    Geos::Prepared prepared_;
};

}  // namespace

std::vector<std::uint32_t> ClustersOf(const std::vector<const OGRGeometry*>& shapes,
                                      double distance) {
    constexpr auto kNone = std::numeric_limits<std::uint32_t>::max();
    Boxes boxes(shapes.size());
    for (std::size_t i = 0; i < shapes.size(); ++i) shapes[i]->getEnvelope(&boxes[i]);
    BoxTree tree(boxes);
    Neighbourhood neighbourhood(shapes, boxes, distance);
    std::vector<std::uint32_t> clusters(shapes.size(), kNone);
    std::uint32_t count = 0;
    std::vector<std::size_t> reached;  // Whose neighbours are still to be found.
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        if (clusters[i] != kNone) continue;
        clusters[i] = count;
        reached.push_back(i);
        while (!reached.empty()) {
            const std::size_t centre = reached.back();
            reached.pop_back();
            neighbourhood.Around(centre);
            tree.Offer(boxes[centre], distance, [&](std::size_t other) {
                if (clusters[other] == count) return true;  // The first one is still in the tree.
                if (!neighbourhood.IsNear(other)) return false;
                clusters[other] = count;
                reached.push_back(other);
                return true;
            });
        }
        ++count;
    }
    return clusters;
}

}  // namespace gis
