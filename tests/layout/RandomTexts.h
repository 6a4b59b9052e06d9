#pragma once

#include <random>
#include <string>
#include <vector>

#include "support/Text.h"

/// Random texts of the kinds that an index holds, and of kinds that it should not.
class RandomTexts {
public:
    static constexpr char kWords[] =
        "Main|St|Avenue|W|iiii|Zwölf|Øst|AV|fi|ffl|Kápolna|Αθήνα|Київ|東京都|a-b|12,|..|Wawaw|To|"
        "Llanfairpwllgwyngyll|e\u0301te\u0301|ﬁn|القاهرة|ירושלים|กรุงเทพ|दिल्ली|Ｗ|\u00a0x|(N)|Y.";

    explicit RandomTexts(unsigned seed, const char* words = kWords)
        : random_(seed), words_(gazetteer::Split(words, '|')) {}

    std::string Text() {
        std::string text;
        const int count = Number(0, 8);
        for (int i = 0; i < count; ++i) {
            if (Number(0, 9) < 7) text += std::string(static_cast<std::size_t>(Number(0, 2)), ' ');
            text +=
                words_[static_cast<std::size_t>(Number(0, static_cast<int>(words_.size()) - 1))];
            if (Number(0, 19) == 0) text += "$$NEWLINE";
            if (Number(0, 59) == 0) text += Number(0, 1) == 0 ? "\n" : "\r";
            if (Number(0, 14) == 0) text += "$$DOTS";
        }
        if (Number(0, 3) == 0) text += ' ';
        if (Number(0, 2) == 0) text += "$$DOTS";
        return text;
    }
    double Width() { return Number(0, 3) == 0 ? Number(2, 60) / 100.0 : Number(30, 400) / 100.0; }
    int Number(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }

private:
    std::mt19937 random_;
    std::vector<std::string> words_;
};
