#include "app/window/PageTiles.h"

#include <cmath>

namespace app {
namespace {

constexpr int kTileSize = 512;               // Width and height of a tile, in pixels.
constexpr qsizetype kCacheBytes = 96 << 20;  // Several windows at twice the resolution.

}  // namespace

PageTiles::PageTiles() : tiles_(kCacheBytes) {}

void PageTiles::SetPicture(std::shared_ptr<const PagePicture> picture) {
    picture_ = std::move(picture);
    tiles_.clear();
}

void PageTiles::SetPixelsPerInch(double pixelsPerInch) {
    if (pixelsPerInch == pixelsPerInch_) return;
    pixelsPerInch_ = pixelsPerInch;
    tiles_.clear();
}

QSize PageTiles::Size() const {
    if (!picture_) return {};
    const auto pixels = [&](double inches) {
        return static_cast<int>(std::ceil(inches * pixelsPerInch_ - 1e-6));
    };
    return {pixels(picture_->Width()), pixels(picture_->Height())};
}

void PageTiles::Paint(QPainter& painter, const QRect& part) {
    const QRect seen = part & QRect(QPoint(0, 0), Size());
    if (seen.isEmpty()) return;
    for (int row = seen.top() / kTileSize; row <= seen.bottom() / kTileSize; ++row)
        for (int column = seen.left() / kTileSize; column <= seen.right() / kTileSize; ++column)
            painter.drawImage(column * kTileSize, row * kTileSize, Tile({column, row}));
}

const QImage& PageTiles::Tile(QPoint place) {
    if (const QImage* const known = tiles_.object(place)) return *known;
    const QPoint from = place * kTileSize;
    const QSize left = Size() - QSize(from.x(), from.y());
    auto* tile = new QImage(left.boundedTo({kTileSize, kTileSize}), QImage::Format_RGB32);
    picture_->Paint(*tile, from, pixelsPerInch_);
    tiles_.insert(place, tile, tile->sizeInBytes());
    return *tile;
}

}  // namespace app
