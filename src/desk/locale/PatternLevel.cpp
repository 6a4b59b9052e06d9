#include "desk/locale/PatternLevel.h"

#include <algorithm>
#include <iterator>

namespace desk {
namespace {

constexpr char kEndOfWord = '.';

/// Returns 0 beyond the end, which sorts a shorter pattern first.
unsigned char At(const std::string& letters, std::size_t depth) {
    return depth < letters.size() ? static_cast<unsigned char>(letters[depth]) : 0;
}

}  // namespace

void PatternLevel::Add(std::string_view line) {
    // Behind a slash is how the spelling changes.
    const std::string_view pattern = line.substr(0, line.find('/'));
    Pattern added{{}, line};
    std::copy_if(pattern.begin(), pattern.end(), std::back_inserter(added.letters),
                 [](char byte) { return byte < '0' || byte > '9'; });
    patterns_.push_back(std::move(added));
}

void PatternLevel::Sort() {
    std::stable_sort(patterns_.begin(), patterns_.end(),
                     [](const auto& a, const auto& b) { return a.letters < b.letters; });
    const auto last =
        std::unique(patterns_.rbegin(), patterns_.rend(),
                    [](const auto& a, const auto& b) { return a.letters == b.letters; });
    patterns_.erase(patterns_.begin(), last.base());
}

/// Those of a range of patterns with a common beginning, of this many letters, that have the letter
/// next.
PatternLevel::Range PatternLevel::Narrowed(const Range& range, std::size_t depth,
                                           char letter) const {
    const auto wanted = static_cast<unsigned char>(letter);
    const auto first = std::partition_point(
        range.first, range.second, [&](const auto& p) { return At(p.letters, depth) < wanted; });
    const auto last = std::partition_point(
        first, range.second, [&](const auto& p) { return At(p.letters, depth) == wanted; });
    return {first, last};
}

/// Adds the first pattern of a range: the one that ends here, or one for the beginning.
void PatternLevel::Take(const Range& range, std::vector<std::string_view>& lines) {
    if (range.first != range.second) lines.push_back(range.first->line);
}

void PatternLevel::Follow(Range range, std::size_t depth, std::string_view rest,
                          std::vector<std::string_view>& lines) const {
    for (const char letter : rest) {
        range = Narrowed(range, depth++, letter);
        if (range.first == range.second) return;
        Take(range, lines);
        Take(Narrowed(range, depth, kEndOfWord), lines);
    }
}

void PatternLevel::Collect(std::string_view word, std::vector<std::string_view>& lines) const {
    const Range all(patterns_.begin(), patterns_.end());
    const Range atBeginning = Narrowed(all, 0, kEndOfWord);
    for (std::size_t start = 0; start < word.size(); ++start) {
        Follow(all, 0, word.substr(start), lines);
        // Parts of a compound, which are words to the next level, can begin anywhere.
        Follow(atBeginning, 1, word.substr(start), lines);
    }
}

}  // namespace desk
