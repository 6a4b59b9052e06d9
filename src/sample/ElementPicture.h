#pragma once

#include "host/Host.h"

namespace gazetteer {

/// An upright rectangle in inches that is shown as whole pixels of a device, square ones.
struct PictureView {
    host::DeviceContext device = 0;
    std::int32_t width = 0;  ///< Pixels, as is the height.
    std::int32_t height = 0;
    double pixelsPerInch = 0;
};

/// Draws texts and filled rectangles of the group on the device with their symbols, members in
/// their order; other elements are left out. Inches are counted from the lower left corner.
void DrawElements(host::IHost& host, const host::IHostGroupElement& group, const PictureView& view);

}  // namespace gazetteer
