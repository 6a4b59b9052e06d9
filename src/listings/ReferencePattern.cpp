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

}  // namespace

std::optional<ReferencePattern> ReferencePattern::Of(std::string_view expression) {
    const auto rest = BehindPage(expression);
    if (!rest) return std::nullopt;
    const auto squareStart = std::min(rest->find("$$"), rest->find('['));
    if (squareStart == std::string_view::npos)
        return rest->empty() ? std::optional(ReferencePattern({}, 0)) : std::nullopt;
    if (squareStart == 0) return std::nullopt;
    const auto pageEnd = rest->substr(0, squareStart);
    std::size_t endsBehind = 0;
    for (auto at = rest->find(pageEnd, squareStart); at != std::string_view::npos;
         at = rest->find(pageEnd, at + pageEnd.size()))
        ++endsBehind;
    return ReferencePattern(std::string(pageEnd), endsBehind);
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

}  // namespace gazetteer
