#include "listings/ReferencePattern.h"

#include <algorithm>

#include "support/Text.h"

namespace gazetteer {
namespace {

constexpr std::string_view kPageForms[] = {"$$PAGE_NUMBER", "[Page]"};

// The expression without the page at its beginning; nothing if it begins otherwise.
std::optional<std::string_view> BehindPage(std::string_view expression) {
    for (const std::string_view form : kPageForms)
        if (EqualsInAnyCase(expression.substr(0, form.size()), form))
            return expression.substr(form.size());
    return std::nullopt;
}

std::size_t CountOf(std::string_view piece, std::string_view text) {
    std::size_t count = 0;
    for (auto at = text.find(piece); at != std::string_view::npos;
         at = text.find(piece, at + piece.size()))
        ++count;
    return count;
}

// What an expression has beside its fields, whose names may have any characters.
std::string WithoutFields(std::string_view expression) {
    std::string literal;
    while (!expression.empty()) {
        const auto field = std::min(expression.find('['), expression.size());
        literal += expression.substr(0, field);
        const auto end = expression.find(']', field);
        expression.remove_prefix(end == std::string_view::npos ? expression.size() : end + 1);
    }
    return literal;
}

}  // namespace

std::optional<ReferencePattern> ReferencePattern::Of(std::string_view expression) {
    const auto rest = BehindPage(expression);
    if (!rest) return std::nullopt;
    const auto squareStart = std::min(rest->find("$$"), rest->find('['));
    if (squareStart == std::string_view::npos)
        return rest->empty() ? std::optional(ReferencePattern({}, {}, 0)) : std::nullopt;
    if (squareStart == 0) return std::nullopt;
    const auto pageEnd = rest->substr(0, squareStart);
    const auto square = rest->substr(squareStart);
    return ReferencePattern(std::string(pageEnd), std::string(square),
                            CountOf(pageEnd, WithoutFields(square)));
}

// A page's name may contain the separator; the square's part of the expression tells how many
// belong to the square.
std::pair<std::string_view, std::string_view> ReferencePattern::PageAndSquare(
    std::string_view reference) const {
    if (!HasSquares()) return {reference, {}};
    auto at = reference.rfind(pageEnd_);
    for (std::size_t i = 0; i < endsBehind_ && at != std::string_view::npos; ++i)
        at = at == 0 ? std::string_view::npos : reference.rfind(pageEnd_, at - 1);
    if (at == std::string_view::npos) return {reference, {}};
    return {reference.substr(0, at), reference.substr(at + pageEnd_.size())};
}

bool ReferencePattern::IsClear(std::string_view reference) const {
    return !HasSquares() || CountOf(pageEnd_, reference) == endsBehind_ + 1;
}

}  // namespace gazetteer
