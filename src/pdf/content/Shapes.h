#pragma once

#include "pdf/color/Color.h"

namespace pdf {

/// Points, Y downward.
struct Box {
    double left = 0, top = 0, right = 0, bottom = 0;
};

/// The edges of a box, and also its diagonals if it is crossed.
struct Outline {
    Box box;
    Color color;
    bool crossed = false;
    double width = 0.5;  ///< Of the lines, in points.
};

}  // namespace pdf
