#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "listings/ReferencePattern.h"
#include "model/Settings.h"

namespace app {

/// A reference in the text of a cell.
struct FoundReference {
    std::size_t first = 0, end = 0;  ///< Bytes of the text.
    std::string_view page;           ///< Part of the text.
    std::string square;              ///< Empty where references have none.
};

/// Returns a text without blanks and line ends. Lines may end inside a reference, after a hyphen or
/// in place of a blank, so that texts of references are compared without them.
std::string WithoutBlanks(std::string_view text);

/// Finds the references in the cells of a column, which may be combined or grouped by page.
class References {
public:
    /// For what an expression has behind its leader, or all of it. Nothing if that does not begin
    /// with the page.
    static std::optional<References> Of(const gazetteer::Settings& settings,
                                        std::string_view expression);

    /// The expression of squares; empty where references have none.
    const std::string& SquareExpression() const { return pattern_.Square(); }

    /// Finds the references of a text as it is drawn, which may have line ends in place of blanks.
    std::vector<FoundReference> Find(std::string_view text) const;

    /// Returns what a stored cell has behind its leader, or all of it, as it is drawn.
    static std::string DrawnText(const std::string& stored);

private:
    References(gazetteer::ReferencePattern pattern, std::vector<std::string> separators,
               bool isGrouped)
        : pattern_(std::move(pattern)), separators_(std::move(separators)), isGrouped_(isGrouped) {}

    std::size_t SeparatorAt(std::string_view text, std::size_t at) const;
    std::size_t SeparatorFrom(std::string_view text, std::size_t at) const;
    std::size_t EndOfPiece(std::string_view text, std::size_t first) const;
    void Add(const FoundReference& reference, std::vector<FoundReference>& found) const;

    gazetteer::ReferencePattern pattern_;
    std::vector<std::string> separators_;  ///< Without blanks around; empty: none but blanks.
    bool isGrouped_;                       ///< Pages that follow each other are runs.
};

}  // namespace app
