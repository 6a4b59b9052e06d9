#include "desk/drawing/InkBounds.h"

#include <algorithm>
#include <span>

namespace desk {
namespace {

constexpr std::size_t kBlock = 32;

}  // namespace

void InkBounds::Add(const PaintBox& box) {
    if (bounds_.size() % kBlock == 0) {
        blocks_.push_back(box);
    } else {
        PaintBox& block = blocks_.back();
        block.left = std::min(block.left, box.left);
        block.top = std::min(block.top, box.top);
        block.right = std::max(block.right, box.right);
        block.bottom = std::max(block.bottom, box.bottom);
    }
    bounds_.push_back(box);
}

void InkBounds::Clear() {
    bounds_.clear();
    blocks_.clear();
}

bool InkBounds::Overlap(const PaintBox& box) const {
    const std::span all(bounds_);
    for (std::size_t i = 0; i < blocks_.size(); ++i) {
        if (!blocks_[i].Overlaps(box)) continue;
        const std::size_t first = i * kBlock;
        const auto block = all.subspan(first, std::min(kBlock, all.size() - first));
        if (std::ranges::any_of(block, [&](const PaintBox& one) { return one.Overlaps(box); }))
            return true;
    }
    return false;
}

}  // namespace desk
