#include "desk/drawing/PaintQueue.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace desk {
namespace {

/// Points by which touching boxes may overlap, due to rounding.
constexpr double kTolerance = 1e-3;

/// Bounds per block of InkBounds.
constexpr std::size_t kBlock = 32;

bool Same(double a, double b) {
    return std::abs(a - b) < kTolerance;
}

/// Merges the next box into a box if it lies to the right or below and shares a whole side.
bool Joins(PaintBox& box, const PaintBox& next) {
    const bool right =
        Same(box.top, next.top) && Same(box.bottom, next.bottom) && Same(box.right, next.left);
    const bool below =
        Same(box.left, next.left) && Same(box.right, next.right) && Same(box.bottom, next.top);
    if (right) box.right = next.right;
    if (below) box.bottom = next.bottom;
    return right || below;
}

/// Merges the cells of a row first, then the row with the row above.
void Add(std::vector<PaintBox>& boxes, const PaintBox& box) {
    boxes.push_back(box);
    while (boxes.size() > 1 && Joins(boxes[boxes.size() - 2], boxes.back())) boxes.pop_back();
}

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

void PaintQueue::Fill(const PaintBox& box, const pdf::Color& color) {
    if (inkBounds_.Overlap(box.Shrunk(kTolerance))) Flush();
    Add(PlaceFor(box, color).boxes, box);
}

void PaintQueue::Draw(const PlacedText& text, const pdf::Color& color,
                      std::span<const TextPart> parts) {
    const std::size_t firstLine = texts_.LineCount();
    const TextBox box = engine_.Set(text, texts_);
    inkBounds_.Add({text.x + box.left, text.y + box.top, text.x + box.right, text.y + box.bottom});
    auto* last = drawings_.empty() ? nullptr : std::get_if<ColoredTexts>(&drawings_.back());
    const bool isRead = !parts.empty();
    const std::size_t first = isRead ? readTexts_.Count() : firstLine;
    if (isRead) readTexts_.Add(text.text, parts, firstLine, texts_.LineCount());
    if (!last || last->color != color || last->areRead != isRead)
        last = &std::get<ColoredTexts>(
            drawings_.emplace_back(ColoredTexts{color, first, first, isRead}));
    last->end = isRead ? readTexts_.Count() : texts_.LineCount();
}

void PaintQueue::Draw(const PaintOutline& outline) {
    inkBounds_.Add(outline.box.Shrunk(kLineWidth));
    drawings_.emplace_back(outline);
}

void PaintQueue::Flush() {
    for (const auto& fill : fills_) canvas_.Fill(fill.boxes, fill.color);
    for (const auto& drawing : drawings_)
        std::visit([this](const auto& one) { Paint(one); }, drawing);
    fills_.clear();
    drawings_.clear();
    texts_.Clear();
    readTexts_.Clear();
    inkBounds_.Clear();
}

/// Returns the pending rectangles of the colour, or a new list if a later rectangle of another
/// colour overlaps the box.
PaintQueue::ColoredBoxes& PaintQueue::PlaceFor(const PaintBox& box, const pdf::Color& color) {
    const PaintBox inside = box.Shrunk(kTolerance);
    for (auto fill = fills_.rbegin(); fill != fills_.rend(); ++fill) {
        if (fill->color == color) return *fill;
        const bool covers =
            std::any_of(fill->boxes.begin(), fill->boxes.end(),
                        [&](const PaintBox& other) { return other.Overlaps(inside); });
        if (covers) break;
    }
    return fills_.emplace_back(ColoredBoxes{color, {}});
}

void PaintQueue::Paint(const ColoredTexts& texts) {
    canvas_.SetTextColor(texts.color);
    if (texts.areRead) return readTexts_.Show(canvas_, texts_, texts.first, texts.end);
    canvas_.SetMeaning({pdf::Role::Paragraph});
    texts_.Show(canvas_, texts.first, texts.end);
}

}  // namespace desk
