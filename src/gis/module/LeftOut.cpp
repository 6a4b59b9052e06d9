#include "gis/module/LeftOut.h"

namespace gis {

void LeftOut::Add(std::int64_t feature) {
    constexpr std::size_t kFirst = 5;
    ++count;
    if (first.size() < kFirst) first.push_back(feature);
}

void LeftOut::Tell(std::vector<std::string>& notes, const std::string& layer,
                   const std::string& one, const std::string& many) const {
    if (count == 0) return;
    std::string numbers;
    for (const auto number : first)
        numbers += (numbers.empty() ? "" : ", ") + std::to_string(number);
    if (count > static_cast<std::int64_t>(first.size())) numbers += ", ...";
    notes.push_back(layer + ": " + std::to_string(count) + ' ' + (count == 1 ? one : many) +
                    " (number " + numbers + ").");
}

}  // namespace gis
