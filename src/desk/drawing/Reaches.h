#pragma once

#include <vector>

#include "desk/devices/Shapes.h"

namespace desk {

/// How far drawings reach that are held back on a page. Their boxes are put together by the dozen,
/// so that most are never looked at: rectangles of a page ask some hundred times each.
class Reaches {
public:
    void Add(const PaintBox& box);
    void Clear();

    /// Whether a drawing reaches into the box.
    bool ReachInto(const PaintBox& box) const;

private:
    std::vector<PaintBox> reaches_;
    std::vector<PaintBox> blocks_;  ///< Each around a number of the reaches.
};

}  // namespace desk
