#include "listings/ReferenceGroups.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string_view>

#include "model/KeyNames.h"
#include "model/Results.h"
#include "support/Conversions.h"
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

std::optional<std::int64_t> WholeNumber(const std::string& text) {
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

}  // namespace

std::optional<ReferenceGroups> ReferenceGroups::For(const Settings& settings) {
    const auto names = NamesOf(*settings.columnDisplayOrder);
    if (!settings.typesetting.groupReferences || settings.combineFirstAndLast || names.empty())
        return std::nullopt;
    const auto column = SetUnder(*settings.columnsProperties, names.back());
    const auto stored = column->Item(keys::kExpression);
    const auto* const text = std::get_if<std::string>(&stored);
    if (!text) return std::nullopt;
    const std::string expression = WithoutOuterBlanks(*text);
    const auto rest = BehindPage(expression);
    if (!rest) return std::nullopt;
    const auto squareStart = std::min(rest->find("$$"), rest->find('['));
    if (squareStart == std::string_view::npos)
        return rest->empty() ? std::optional(ReferenceGroups({}, 0)) : std::nullopt;
    if (squareStart == 0) return std::nullopt;
    const auto pageEnd = rest->substr(0, squareStart);
    std::size_t endsBehind = 0;
    for (auto at = rest->find(pageEnd, squareStart); at != std::string_view::npos;
         at = rest->find(pageEnd, at + pageEnd.size()))
        ++endsBehind;
    return ReferenceGroups(std::string(pageEnd), endsBehind);
}

std::string ReferenceGroups::Text(const std::vector<std::string>& references,
                                  const std::string& separator) const {
    if (pageEnd_.empty()) return Ranges(references, separator);
    const std::string betweenPages = separator == kNewLineToken ? separator : "; ";
    const std::string betweenSquares = separator == kNewLineToken ? ", " : separator;
    std::string text;
    std::string lastPage;
    for (const std::string& reference : references) {
        auto [page, square] = PageAndSquare(reference);
        if (text.empty())
            text = reference;
        else if (!square.empty() && page == lastPage)
            text += betweenSquares + square;
        else
            text += betweenPages + reference;
        lastPage = square.empty() ? std::string() : std::move(page);
    }
    return text;
}

// A page's name may contain the separator; the square's part of the expression tells how many
// belong to the square. Without a separator all is square-less.
std::pair<std::string, std::string> ReferenceGroups::PageAndSquare(
    const std::string& reference) const {
    auto at = reference.rfind(pageEnd_);
    for (std::size_t i = 0; i < endsBehind_ && at != std::string::npos; ++i)
        at = at == 0 ? std::string::npos : reference.rfind(pageEnd_, at - 1);
    if (at == std::string::npos) return {reference, {}};
    return {reference.substr(0, at), reference.substr(at + pageEnd_.size())};
}

// Three pages or more that follow each other are a range.
std::string ReferenceGroups::Ranges(const std::vector<std::string>& pages,
                                    const std::string& separator) {
    std::string text;
    const auto add = [&](const std::string& page) {
        text += (text.empty() ? "" : separator) + page;
    };
    for (std::size_t i = 0; i < pages.size();) {
        std::size_t end = i + 1;
        const auto first = WholeNumber(pages[i]);
        while (first && end < pages.size() &&
               WholeNumber(pages[end]) == *first + static_cast<std::int64_t>(end - i))
            ++end;
        if (end - i > 2) {
            add(pages[i] + '-' + pages[end - 1]);
        } else {
            for (std::size_t j = i; j < end; ++j) add(pages[j]);
        }
        i = end;
    }
    return text;
}

}  // namespace gazetteer
