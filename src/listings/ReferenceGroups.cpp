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
    auto pattern = ReferencePattern::Of(WithoutOuterBlanks(*text));
    if (!pattern) return std::nullopt;
    return ReferenceGroups(std::move(*pattern));
}

std::string ReferenceGroups::Text(const std::vector<std::string>& references,
                                  const std::string& separator) const {
    if (!pattern_.HasSquares()) return Ranges(references, separator);
    const std::string betweenPages = separator == kNewLineToken ? separator : "; ";
    const std::string betweenSquares = separator == kNewLineToken ? ", " : separator;
    std::string text;
    std::string_view lastPage;
    for (const std::string& reference : references) {
        const auto [page, square] = pattern_.PageAndSquare(reference);
        if (text.empty())
            text = reference;
        else if (!square.empty() && page == lastPage)
            text.append(betweenSquares).append(square);
        else
            text += betweenPages + reference;
        lastPage = square.empty() ? std::string_view() : page;
    }
    return text;
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
