#include "app/document/Suggestion.h"

#include <algorithm>

#include "characters/FoldCase.h"

namespace app {
namespace {

// Returns the number of characters to insert, delete, replace or swap with the next one to make one
// text the other.
std::size_t EditDistance(std::string_view one, std::string_view other) {
    std::vector<std::vector<std::size_t>> cost(one.size() + 1,
                                               std::vector<std::size_t>(other.size() + 1));
    for (std::size_t i = 0; i <= one.size(); ++i)
        for (std::size_t j = 0; j <= other.size(); ++j) {
            if (i == 0 || j == 0) {
                cost[i][j] = i + j;
                continue;
            }
            const bool same = one[i - 1] == other[j - 1];
            cost[i][j] = std::min(
                {cost[i - 1][j] + 1, cost[i][j - 1] + 1, cost[i - 1][j - 1] + (same ? 0 : 1)});
            if (i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1])
                cost[i][j] = std::min(cost[i][j], cost[i - 2][j - 2] + 1);
        }
    return cost.back().back();
}

}  // namespace

std::string Nearest(std::string_view misspelt, const std::vector<std::string>& known) {
    constexpr std::size_t kLongest = 64;  // Bytes; keys and options are shorter.
    if (misspelt.size() > kLongest) return {};
    const std::string wanted = characters::FoldCase(std::string(misspelt));
    std::size_t nearest = 1 + std::max<std::size_t>(1, wanted.size() / 4);
    std::size_t longest = 0;
    std::string found;
    for (const std::string& word : known) {
        const std::string folded = characters::FoldCase(word);
        const std::size_t distance = EditDistance(wanted, folded);
        const auto common =
            static_cast<std::size_t>(std::ranges::mismatch(wanted, folded).in1 - wanted.begin());
        // A word of two letters with one wrong is no misspelling.
        if (distance > 0 && 2 * distance >= wanted.size()) continue;
        if (distance > nearest || (distance == nearest && (found.empty() || common <= longest)))
            continue;
        nearest = distance;
        longest = common;
        found = word;
    }
    return found;
}

std::string Suggestion(std::string_view misspelt, const std::vector<std::string>& known) {
    const std::string found = Nearest(misspelt, known);
    return found.empty() ? found : " Did you mean \"" + found + "\"?";
}

}  // namespace app
