#pragma once

#include <vector>

#include "desk/devices/Shapes.h"

namespace desk {

/// The ink bounds of drawings that are held back on a page. They are put together by the dozen, so
/// that most are never looked at: rectangles of a page ask some hundred times each.
class InkBounds {
public:
    void Add(const PaintBox& box);
    void Clear();

    /// Whether a drawing overlaps the box.
    bool Overlap(const PaintBox& box) const;

private:
    std::vector<PaintBox> bounds_;
    std::vector<PaintBox> blocks_;  ///< Each around a number of them.
};

}  // namespace desk
