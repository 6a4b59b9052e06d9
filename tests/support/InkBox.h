#pragma once

#include <algorithm>
#include <limits>

namespace support {

/// The smallest box around the ink of an image, in pixels; right is below left where there is none.
struct InkBox {
    int left = std::numeric_limits<int>::max();
    int top = std::numeric_limits<int>::max();
    int right = -1;
    int bottom = -1;

    bool operator==(const InkBox&) const = default;
};

/// Asks of each pixel whether it holds ink.
template <class IsInk>
InkBox FindInk(int width, int height, const IsInk& isInk) {
    InkBox box;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (!isInk(x, y)) continue;
            box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x),
                   std::max(box.bottom, y)};
        }
    }
    return box;
}

}  // namespace support
