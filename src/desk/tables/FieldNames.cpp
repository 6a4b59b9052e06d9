#include "desk/tables/FieldNames.h"

#include <algorithm>

#include "desk/unicode/FoldCase.h"

namespace desk {

FieldNames::FieldNames(const std::vector<std::string>& names) : names_(names) {
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto [place, isNew] =
            folded_.emplace(FoldCase(names[i]), static_cast<std::int32_t>(i));
        if (isNew) continue;
        const std::string& first = names[static_cast<std::size_t>(place->second)];
        if (std::find(repeated_.begin(), repeated_.end(), first) == repeated_.end())
            repeated_.push_back(first);
    }
}

std::int32_t FieldNames::Find(const std::string& name) const {
    const auto exact = std::find(names_.begin(), names_.end(), name);
    if (exact != names_.end()) return static_cast<std::int32_t>(exact - names_.begin());
    const auto place = folded_.find(FoldCase(name));
    return place == folded_.end() ? -1 : place->second;
}

}  // namespace desk
