#pragma once

#include <string>
#include <string_view>

#include "desk/text/FontCache.h"
#include "desk/text/GlyphRun.h"

namespace desk {

/// Lays out a line of any text: several scripts, both directions, fallback to other fonts.
class LayoutShaper {
public:
    explicit LayoutShaper(PangoContext* context);

    /// Shapes the line. Returns its width in 1024ths of a point.
    int Shape(const ResolvedFont& font, std::string_view line);

    /// Draws the line shaped last, with the left end of its baseline at the point.
    void Show(cairo_t* context, GlyphRun& run, double x, double y);

private:
    GObjectHandle<PangoLayout> layout_;
    const ResolvedFont* font_ = nullptr;
    std::string text_;  ///< Of the line shaped last.
};

}  // namespace desk
