#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace desk {

/// The patterns of one level of a file of hyphenation patterns, by their letters.
class PatternLevel {
public:
    /// Takes a line of the file, which must outlive this.
    void Add(std::string_view line);
    /// Call after the last line. Of patterns with the same letters the last counts, as to
    /// libhyphen, which loses some memory to each of the others.
    void Sort();

    /// Adds the lines that decide about a word, given in small letters of the file's encoding:
    /// patterns whose letters the word has side by side, and of those that only begin so, one for
    /// each beginning. libhyphen follows the longest beginning, and does not apply a shorter
    /// pattern within it.
    void Collect(std::string_view word, std::vector<std::string_view>& lines) const;

private:
    struct Pattern {
        std::string letters;  ///< And the points for an end of the word.
        std::string_view line;
    };
    using Place = std::vector<Pattern>::const_iterator;
    using Range = std::pair<Place, Place>;

    Range Narrowed(const Range& range, std::size_t depth, char letter) const;
    static void Take(const Range& range, std::vector<std::string_view>& lines);
    void Follow(Range range, std::size_t depth, std::string_view rest,
                std::vector<std::string_view>& lines) const;

    std::vector<Pattern> patterns_;
};

}  // namespace desk
