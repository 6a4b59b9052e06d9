#pragma once

#include <string>
#include <string_view>

#include "desk/text/FontCache.h"
#include "desk/text/SetTexts.h"

namespace desk {

/// Lays out a line of any text: several scripts, both directions, fallback to other fonts.
class LayoutShaper {
public:
    explicit LayoutShaper(PangoContext* context);

    /// Shapes the line. Returns its width in 1024ths of a point.
    int Shape(const ResolvedFont& font, std::string_view line);

    /// Puts the line shaped last on a baseline.
    void Place(SetTexts& into, Baseline baseline);

private:
    GObjectHandle<PangoLayout> layout_;
    const ResolvedFont* font_ = nullptr;
    std::string text_;  ///< Of the line shaped last.
};

}  // namespace desk
