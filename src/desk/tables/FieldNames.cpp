#include "desk/tables/FieldNames.h"

#include <algorithm>
#include <unicode/unistr.h>

namespace desk {

std::string FoldName(const std::string& name) {
    std::string folded = name;
    for (char& letter : folded) {
        if (static_cast<unsigned char>(letter) >= 0x80) {
            auto wide = icu::UnicodeString::fromUTF8(name);
            folded.clear();
            return wide.foldCase().toUTF8String(folded);
        }
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return folded;
}

FieldNames::FieldNames(const std::vector<std::string>& names) : names_(names) {
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto [place, isNew] =
            folded_.emplace(FoldName(names[i]), static_cast<std::int32_t>(i));
        if (isNew) continue;
        const std::string& first = names[static_cast<std::size_t>(place->second)];
        if (std::find(repeated_.begin(), repeated_.end(), first) == repeated_.end())
            repeated_.push_back(first);
    }
}

std::int32_t FieldNames::Find(const std::string& name) const {
    const auto exact = std::find(names_.begin(), names_.end(), name);
    if (exact != names_.end()) return static_cast<std::int32_t>(exact - names_.begin());
    const auto place = folded_.find(FoldName(name));
    return place == folded_.end() ? -1 : place->second;
}

}  // namespace desk
