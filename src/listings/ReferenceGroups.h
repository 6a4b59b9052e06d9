#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "listings/ReferencePattern.h"
#include "model/Settings.h"

namespace gazetteer {

/// Writes the references of one listing with each page once: "11 D-3, D-4; 12 G-5", and pages
/// without squares as ranges: "4-6, 9".
class ReferenceGroups {
public:
    /// For the column in which listings are combined; nothing if the settings do not ask for it, or
    /// if the column's expression does not begin with the page and a separator, or the page alone.
    static std::optional<ReferenceGroups> For(const Settings& settings);

    /// The references in the order of the listing's rows, at least one. Those of one page that
    /// follow each other are grouped. The separator stands between squares, and "; " between pages;
    /// a separator with a semicolon or of a new line stands between pages, and ", " between
    /// squares. Where it could not be told what belongs to which page, nothing is grouped.
    std::string Text(const std::vector<std::string>& references,
                     const std::string& separator) const;

private:
    explicit ReferenceGroups(ReferencePattern pattern) : pattern_(std::move(pattern)) {}

    ReferencePattern pattern_;
};

}  // namespace gazetteer
