#pragma once

#include "desk/drawing/Canvas.h"
#include "desk/text/TextEngine.h"
#include "host/Elements.h"

namespace desk {

/// Paints elements of a layout page: rectangles by their fill symbols, texts, groups in the order
/// of their members, and map frames as a thin frame around their name. A group in draft state shows
/// a crossed frame in place of its members. Elements without geometry, or of another kind, are
/// skipped.
class ElementPainter {
public:
    explicit ElementPainter(TextEngine& engine) : engine_(engine) {}

    /// Paints on a canvas whose origin is the lower left corner of the sheet. Lengths of the
    /// elements are inches, Y upward.
    void Paint(Canvas& canvas, const host::Ref<host::IHostElement>& element);

private:
    TextEngine& engine_;
};

}  // namespace desk
