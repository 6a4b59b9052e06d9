#include "app/document/ColumnMeaning.h"

#include <algorithm>
#include <string_view>

#include "model/Results.h"
#include "support/Text.h"

namespace app {
namespace {

using pdf::Role;

/// The fields of an expression that say where a listing is found.
constexpr std::string_view kPlaceFields[] = {"$$PAGE_NUMBER", "$$ROW", "$$COLUMN",
                                             "[Page]",        "[Row]", "[Column]"};

/// Returns whether the first field of an expression is one of a place.
bool BeginsWithPlace(std::string_view expression) {
    const auto first = std::min(expression.find("$$"), expression.find('['));
    if (first == std::string_view::npos) return false;
    expression.remove_prefix(first);
    return std::ranges::any_of(kPlaceFields, [&](std::string_view field) {
        return gazetteer::EqualsInAnyCase(expression.substr(0, field.size()), field);
    });
}

Role RoleOf(std::string_view expression) {
    return BeginsWithPlace(expression) ? Role::Reference : Role::Name;
}

}  // namespace

ColumnMeaning ReadColumn(OpenDocument& open, const gazetteer::ColumnProperties& column,
                         bool withReferences) {
    const std::string_view expression = column.expression;
    const auto leader = expression.rfind(gazetteer::kDotsToken);
    const bool hasLeader = leader != std::string_view::npos;
    const auto tail =
        hasLeader ? expression.substr(leader + std::size(gazetteer::kDotsToken) - 1) : expression;
    ColumnMeaning meaning{hasLeader, RoleOf(expression.substr(0, leader)), RoleOf(tail), {}, {}};
    if (!withReferences) return meaning;
    meaning.references = References::Of(open.Manager().BoundSettings(), column.expression);
    if (meaning.references) meaning.squares.emplace(open, column, *meaning.references);
    return meaning;
}

}  // namespace app
