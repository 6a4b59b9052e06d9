#pragma once

#include "desk/drawing/Canvas.h"
#include "desk/drawing/TextReader.h"
#include "desk/text/TextEngine.h"
#include "host/Elements.h"

namespace desk {

/// Paints elements of a layout page: rectangles, texts, groups in member order, and map frames as a
/// thin frame with their name. A group in draft state is painted as a crossed frame without its
/// members. Elements without geometry or of another kind are skipped.
class ElementPainter {
public:
    /// The reader, which may be null, tells what texts mean.
    explicit ElementPainter(TextEngine& engine, TextReader* reader = nullptr)
        : engine_(engine), reader_(reader) {}

    /// The canvas has its origin at the sheet's lower left corner. Elements are in inches, Y
    /// upward.
    void Paint(Canvas& canvas, const host::Ref<host::IHostElement>& element);

private:
    TextEngine& engine_;
    TextReader* reader_;
};

}  // namespace desk
