#include "app/document/References.h"

#include <algorithm>
#include <utility>

#include "model/Results.h"
#include "support/Text.h"

namespace app {
namespace {

bool IsBlank(char byte) {
    return byte == ' ' || byte == '\n' || byte == '\r';
}

std::string_view BehindLeader(std::string_view text) {
    const auto leader = text.rfind(gazetteer::kDotsToken);
    if (leader != std::string_view::npos)
        text.remove_prefix(leader + std::size(gazetteer::kDotsToken) - 1);
    return text;
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

std::string WithoutBlanks(std::string_view text) {
    std::string result(text);
    std::erase_if(result, IsBlank);
    return result;
}

std::optional<References> References::Of(const gazetteer::Settings& settings,
                                         std::string_view expression) {
    auto pattern = gazetteer::ReferencePattern::Of(
        gazetteer::WithoutOuterBlanks(std::string(BehindLeader(expression))));
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

std::string References::DrawnText(const std::string& stored) {
    std::string text(BehindLeader(stored));
    text = gazetteer::ReplaceAll(std::move(text), gazetteer::kLastCombineToken, "");
    return gazetteer::ReplaceAll(std::move(text), gazetteer::kNewLineToken, "\n");
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

/// Returns the end of a reference. Where the same text separates references, and page and square in
/// each of them, the first one is inside.
std::size_t References::EndOfPiece(std::string_view text, std::size_t first) const {
    const std::size_t end = SeparatorFrom(text, first);
    const std::string& pageEnd = pattern_.PageEnd();
    const bool isInside = pattern_.HasSquares() && text.substr(end, pageEnd.size()) == pageEnd;
    return isInside && end < text.size() ? SeparatorFrom(text, end + pageEnd.size()) : end;
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
        const auto& shown = isSquareAlone ? page : square;
        if (end > first) Add({first, end, lastPage, std::string(shown)}, found);
        first = pieceEnd + std::max<std::size_t>(1, SeparatorAt(blanks, pieceEnd));
    }
    return found;
}

/// Adds a reference; of a run of pages, its first and its last one.
void References::Add(const FoundReference& reference, std::vector<FoundReference>& found) const {
    const std::size_t dash = isGrouped_ ? DashOfRun(reference.page) : std::string_view::npos;
    if (dash == std::string_view::npos) return found.push_back(reference);
    const std::size_t middle = reference.first + dash;
    found.push_back({reference.first, middle, reference.page.substr(0, dash), {}});
    found.push_back({middle + 1, reference.end, reference.page.substr(dash + 1), {}});
}

}  // namespace app
