#pragma once

#include <ogr_geometry.h>
#include <optional>
#include <vector>

#include "gis/locate/Grid.h"

namespace gis {

/// Part of a segment, from 0 at its first place to 1 at its last.
struct Share {
    double from = 0;
    double to = 1;
};

/// A polygon without holes that turns in one direction only, as most squares are.
class ConvexArea {
public:
    /// Nothing if the area is no such polygon.
    static std::optional<ConvexArea> Of(const OGRGeometry& area);

    /// The part of a segment in the area; nothing if there is none. A place within 1e-9 of the
    /// area's size is on its border, which belongs to it.
    std::optional<Share> Clip(const Point& from, const Point& to) const;

private:
    /// Of length 1, with the area on its left.
    struct Edge {
        Point start;
        Point direction;

        /// Distance to the left.
        double Left(const Point& point) const {
            return direction.x * (point.y - start.y) - direction.y * (point.x - start.x);
        }
    };
    std::vector<Edge> edges_;
    double rounding_ = 0;
};

/// Takes a share out of those that are left; returns how much of it was left.
double TakeOut(const Share& share, std::vector<Share>& left);

}  // namespace gis
