#pragma once

#include <iterator>
#include <random>
#include <string>

namespace support {

/// Texts of few words, so that many are alike: numbers, letters and both in one, in several
/// alphabets, with blanks in odd places. They form ties and circles.
inline std::string RandomSortText(std::mt19937& random) {
    static const char* const kPieces[] = {"a",   "A",   "b",       "ab", "é",    "E",     "ж",
                                          "Ж",   "中",  "e\u0301", "9",  "10",   "9a",    "a9",
                                          "a10", "10B", "007",     "7",  "1.5",  "1,000", "٣",
                                          "٢٢",  "٣a",  "-",       "",   "\xFF", "1E5",   "A12B9"};
    std::string text;
    for (std::size_t words = random() % 7; words > 0; --words) {
        text += kPieces[random() % std::size(kPieces)];
        if (random() % 5 != 0) text += ' ';
    }
    return text;
}

}  // namespace support
