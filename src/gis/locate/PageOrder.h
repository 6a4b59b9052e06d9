#pragma once

#include <compare>
#include <string>

namespace gis {

/// The place of a page or a label among others: numbers by their value, then texts.
struct PageOrder {
    bool isText;
    double number;
    std::string text;

    static PageOrder Of(const std::string& page);
    auto operator<=>(const PageOrder&) const = default;
};

}  // namespace gis
