#include "gis/locate/ConvexArea.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace gis {

std::optional<ConvexArea> ConvexArea::Of(const OGRGeometry& area) {
    if (wkbFlatten(area.getGeometryType()) != wkbPolygon) return std::nullopt;
    const OGRPolygon& polygon = *area.toPolygon();
    const auto* const ring = polygon.getExteriorRing();
    if (ring == nullptr || polygon.getNumInteriorRings() > 0) return std::nullopt;
    OGREnvelope box;
    area.getEnvelope(&box);
    ConvexArea convex;
    convex.rounding_ = 1e-9 * std::hypot(box.MaxX - box.MinX, box.MaxY - box.MinY);
    const int last = ring->getNumPoints() - 1;
    const int step = ring->isClockwise() != 0 ? -1 : 1;
    for (int i = step > 0 ? 0 : last; i + step >= 0 && i + step <= last; i += step) {
        const Point start{ring->getX(i), ring->getY(i)};
        const Point along{ring->getX(i + step) - start.x, ring->getY(i + step) - start.y};
        const double length = std::hypot(along.x, along.y);
        if (length > convex.rounding_)
            convex.edges_.push_back({start, {along.x / length, along.y / length}});
    }
    const auto& edges = convex.edges_;
    for (const Edge& edge : edges)
        for (const Edge& other : edges)
            if (edge.Left(other.start) < -convex.rounding_) return std::nullopt;
    return edges.size() < 3 ? std::nullopt : std::optional(convex);
}

std::optional<Share> ConvexArea::Clip(const Point& from, const Point& to) const {
    Share share;
    for (const Edge& edge : edges_) {
        const double first = edge.Left(from);
        const double last = edge.Left(to);
        if (std::min(first, last) >= -rounding_) continue;
        if (std::max(first, last) < -rounding_) return std::nullopt;
        const double crossing = first / (first - last);
        if (first < last)
            share.from = std::max(share.from, crossing);
        else
            share.to = std::min(share.to, crossing);
    }
    return share.from < share.to ? std::optional(share) : std::nullopt;
}

double TakeOut(const Share& share, std::vector<Share>& left) {
    double taken = 0;
    std::vector<Share> rest;
    for (const Share& piece : left) {
        const Share common{std::max(piece.from, share.from), std::min(piece.to, share.to)};
        if (common.from >= common.to) {
            rest.push_back(piece);
            continue;
        }
        taken += common.to - common.from;
        if (piece.from < common.from) rest.push_back({piece.from, common.from});
        if (common.to < piece.to) rest.push_back({common.to, piece.to});
    }
    left = std::move(rest);
    return taken;
}

}  // namespace gis
