#pragma once

#include <string>
#include <utility>
#include <vector>

#include "support/TestDesk.h"

namespace support {

using Assignments = std::vector<std::pair<std::string, host::Variant>>;

/// Stores values with a gazetteer, those of a column under "Column.Key".
inline void Store(TestDesk& desk, const TestDesk::Group& element, const Assignments& assignments) {
    for (const auto& [key, value] : assignments) {
        const auto dot = key.find('.');
        const bool ofColumn = dot != std::string::npos;
        const auto set =
            ofColumn ? desk.Column(element, key.substr(0, dot)) : desk.Properties(element);
        set->SetItem(ofColumn ? key.substr(dot + 1) : key, value);
    }
}

}  // namespace support
