#include "gis/locate/PageOrder.h"

#include <charconv>
#include <cmath>

namespace gis {

PageOrder PageOrder::Of(const std::string& page) {
    double number = 0;
    const char* const end = page.data() + page.size();
    const auto parsed = std::from_chars(page.data(), end, number);
    // "Nan" and "Inf" may be places.
    const bool isText = parsed.ec != std::errc() || parsed.ptr != end || !std::isfinite(number);
    return {isText, isText ? 0 : number, page};
}

}  // namespace gis
