#include "listings/ReferenceGroups.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <utility>

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

std::string Joined(const std::vector<std::string>& texts, const std::string& separator) {
    std::string all;
    for (std::size_t i = 0; i < texts.size(); ++i) all += (i > 0 ? separator : "") + texts[i];
    return all;
}

// Three pages or more that follow each other are a range.
std::vector<std::string> Ranges(const std::vector<std::string>& pages) {
    std::vector<std::string> ranges;
    for (std::size_t i = 0; i < pages.size();) {
        std::size_t end = i + 1;
        const auto first = WholeNumber(pages[i]);
        while (first && end < pages.size() &&
               WholeNumber(pages[end]) == *first + static_cast<std::int64_t>(end - i))
            ++end;
        if (end - i > 2)
            ranges.push_back(pages[i] + '-' + pages[end - 1]);
        else
            ranges.insert(ranges.end(), pages.begin() + static_cast<std::ptrdiff_t>(i),
                          pages.begin() + static_cast<std::ptrdiff_t>(end));
        i = end;
    }
    return ranges;
}

struct Separators {
    std::string pages = "; ";
    std::string squares = ", ";
};

Separators SeparatorsOf(const std::string& separator) {
    Separators both;
    const bool endsPages = separator == kNewLineToken || separator.find(';') != std::string::npos;
    (endsPages ? both.pages : both.squares) = separator;
    return both;
}

bool Holds(std::string_view text, const std::string& separator) {
    return !separator.empty() && text.find(separator) != std::string_view::npos;
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
    if (!pattern_.HasSquares()) return Joined(Ranges(references), separator);
    const Separators between = SeparatorsOf(separator);
    std::vector<std::string> groups;
    std::vector<std::string> pages;  // Without squares, the last ones.
    const auto endPages = [&] {
        std::ranges::move(Ranges(std::exchange(pages, {})), std::back_inserter(groups));
    };
    std::optional<std::string_view> lastPage;
    for (const std::string& reference : references) {
        const auto [page, square] = pattern_.PageAndSquare(reference);
        if (!pattern_.IsClear(reference) || Holds(page, between.pages) ||
            Holds(square, between.pages) || Holds(square, between.squares))
            return Joined(references, separator);
        if (square.find_first_not_of(' ') == std::string_view::npos) {
            pages.emplace_back(page);
            lastPage.reset();
            continue;
        }
        endPages();
        if (page == lastPage)
            groups.back().append(between.squares).append(square);
        else
            groups.push_back(reference);
        lastPage = page;
    }
    endPages();
    return Joined(groups, between.pages);
}

}  // namespace gazetteer
