#pragma once

#include <cstddef>
#include <functional>
#include <optional>

namespace gazetteer {

/// The width of a text with so many dots in it, in inches.
using WidthWithDots = std::function<double(std::size_t)>;

/// The greatest number of dots with which a text is no wider than its column. Requires that it fits
/// without dots. dotWidth is an estimate; the result is verified. Nothing if dots have no width.
std::optional<std::size_t> DotsThatFit(const WidthWithDots& widthWith, double dotWidth,
                                       double width);

}  // namespace gazetteer
