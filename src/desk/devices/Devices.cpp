#include "desk/devices/Devices.h"

#include <cmath>
#include <string>

#include "host/Failure.h"

namespace desk {
namespace {

/// Lower numbers are for displays that only measure.
constexpr host::DeviceContext kFirstDevice = 0x100;

/// Cairo's maximum width and height of an image.
constexpr std::int32_t kMostPixels = 32767;

struct Registry {
    std::unordered_map<host::DeviceContext, const PixelSurface*> surfaces;
    host::DeviceContext next = kFirstDevice;
};

Registry& TheRegistry() {
    static Registry registry;
    return registry;
}

[[noreturn]] void Fail(const std::string& sentence) {
    throw host::Failure(host::kFailureTypeMismatch, "PixelSurface", sentence);
}

void CheckSize(std::int32_t width, std::int32_t height, double dotsPerInch) {
    const bool fits = width >= 1 && height >= 1 && width <= kMostPixels && height <= kMostPixels;
    if (!fits)
        Fail("A drawing surface has from 1 to " + std::to_string(kMostPixels) +
             " pixels in each direction, not " + std::to_string(width) + " by " +
             std::to_string(height) + ".");
    if (!(dotsPerInch > 0))
        Fail("The resolution of a drawing surface must be positive, not " +
             std::to_string(dotsPerInch) + " dots per inch.");
}

}  // namespace

PixelSurface::PixelSurface(std::int32_t width, std::int32_t height, double dotsPerInch)
    : width_(width), height_(height), dotsPerInch_(dotsPerInch) {
    CheckSize(width, height, dotsPerInch);
    surface_.reset(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
    if (const auto status = cairo_surface_status(surface_.get()); status != CAIRO_STATUS_SUCCESS)
        Fail(std::string("A drawing surface cannot be made: ") + cairo_status_to_string(status) +
             ".");
    device_ = TheRegistry().next++;
    TheRegistry().surfaces.emplace(device_, this);
}

PixelSurface::~PixelSurface() {
    TheRegistry().surfaces.erase(device_);
}

// Rows of four-byte pixels without gaps.
std::span<const std::uint32_t> PixelSurface::Pixels() {
    cairo_surface_flush(surface_.get());
    const void* const bytes = cairo_image_surface_get_data(surface_.get());
    return {static_cast<const std::uint32_t*>(bytes),
            static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)};
}

const PixelSurface& PixelSurface::Of(host::DeviceContext device) {
    const auto found = TheRegistry().surfaces.find(device);
    if (found == TheRegistry().surfaces.end())
        Fail("There is no drawing surface with the handle " + std::to_string(device) + ".");
    return *found->second;
}

host::Brush Devices::CreateSolidBrush(std::uint32_t color) {
    const host::Brush brush = next_++;
    colors_.emplace(brush, color);
    return brush;
}

void Devices::FillRect(host::DeviceContext device, const host::PixelRectangle& rectangle,
                       host::Brush brush) {
    const auto color = colors_.find(brush);
    if (color == colors_.end())
        throw host::Failure(host::kFailureTypeMismatch, "Devices",
                            "There is no brush with the handle " + std::to_string(brush) + ".");
    const auto context = PixelSurface::Of(device).NewContext();
    const PaintBox box{static_cast<double>(rectangle.left), static_cast<double>(rectangle.top),
                       static_cast<double>(rectangle.right), static_cast<double>(rectangle.bottom)};
    FillBoxes(context.get(), {&box, 1}, color->second);
}

std::int32_t Devices::GetDeviceCaps(host::DeviceContext device, std::int32_t index) {
    const PixelSurface& surface = PixelSurface::Of(device);
    if (index != host::kLogicalPixelsY) return 0;
    return static_cast<std::int32_t>(std::lround(surface.DotsPerInch()));
}

}  // namespace desk
