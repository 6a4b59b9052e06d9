#include "app/document/References.h"

#include <algorithm>
#include <utility>

#include "support/Text.h"

namespace app {
namespace {

bool IsBlank(char byte) {
    return byte == ' ' || byte == '\n' || byte == '\r';
}

/// Returns the place of the dash in a run of pages, such as "4-6"; npos for other texts.
std::size_t DashOfRun(std::string_view pages) {
    const auto dash = pages.find('-');
    const bool isRun = dash != std::string_view::npos && dash > 0 && dash + 1 < pages.size() &&
                       pages.find_first_not_of("0123456789-") == std::string_view::npos &&
                       pages.find('-', dash + 1) == std::string_view::npos;
    return isRun ? dash : std::string_view::npos;
}

}  // namespace

std::optional<References> References::Of(const gazetteer::Settings& settings,
                                         std::string_view expression) {
    auto pattern =
        gazetteer::ReferencePattern::Of(gazetteer::WithoutOuterBlanks(std::string(expression)));
    if (!pattern) return std::nullopt;
    std::vector<std::string> separators;
    if (settings.combineListings && !settings.combineWithNewLine)
        separators.push_back(gazetteer::WithoutOuterBlanks(settings.combineDelimeter));
    // Where the delimiter stands between pages, grouped squares have another one.
    if (settings.typesetting.groupReferences)
        for (const char* separator : {";", ","}) separators.emplace_back(separator);
    std::erase(separators, std::string());
    if (settings.combineWithNewLine) separators.emplace_back("\n");
    const bool isGrouped = settings.typesetting.groupReferences && !pattern->HasSquares();
    return References(std::move(*pattern), std::move(separators), isGrouped);
}

/// Returns the length of the separator at a place; 0 for none.
std::size_t References::SeparatorAt(std::string_view text, std::size_t at) const {
    for (const std::string& separator : separators_)
        if (text.substr(at, separator.size()) == separator) return separator.size();
    return 0;
}

/// Returns the place of the next separator.
std::size_t References::SeparatorFrom(std::string_view text, std::size_t at) const {
    while (at < text.size() && SeparatorAt(text, at) == 0) ++at;
    return at;
}

/// A separator that also stands between page and square ends a piece behind the square alone.
std::size_t References::EndOfPiece(std::string_view text, std::size_t first) const {
    std::size_t at = first;
    const std::string& pageEnd = pattern_.PageEnd();
    if (pattern_.HasSquares())
        if (const auto square = text.find(pageEnd, first);
            square != std::string_view::npos && SeparatorFrom(text, first) == square)
            at = square + pageEnd.size();
    return SeparatorFrom(text, at);
}

std::vector<FoundReference> References::Find(std::string_view text) const {
    std::string blanks(text);
    std::ranges::replace(blanks, '\r', ' ');
    if (std::ranges::find(separators_, "\n") == separators_.end())
        std::ranges::replace(blanks, '\n', ' ');
    std::vector<FoundReference> found;
    std::string_view lastPage;
    for (std::size_t first = 0; first < text.size();) {
        if (IsBlank(text[first])) {
            ++first;
            continue;
        }
        const std::size_t pieceEnd = EndOfPiece(blanks, first);
        std::size_t end = pieceEnd;
        while (end > first && IsBlank(text[end - 1])) --end;
        const auto [page, square] =
            pattern_.PageAndSquare(std::string_view(blanks).substr(first, end - first));
        const bool isSquareAlone = pattern_.HasSquares() && square.empty() && !lastPage.empty();
        if (!isSquareAlone) lastPage = text.substr(first, page.size());
        const std::string_view ownSquare = isSquareAlone
                                               ? text.substr(first, end - first)
                                               : text.substr(end - square.size(), square.size());
        const std::size_t dash = isGrouped_ ? DashOfRun(lastPage) : std::string_view::npos;
        if (dash != std::string_view::npos) {
            found.push_back({first, first + dash, lastPage.substr(0, dash), {}});
            found.push_back({first + dash + 1, end, lastPage.substr(dash + 1), {}});
        } else if (end > first) {
            found.push_back({first, end, lastPage, ownSquare});
        }
        first = pieceEnd + std::max<std::size_t>(1, SeparatorAt(blanks, pieceEnd));
    }
    return found;
}

}  // namespace app
