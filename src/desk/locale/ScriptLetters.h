#pragma once

#include <map>
#include <unicode/tblcoll.h>
#include <unicode/unistr.h>
#include <unicode/uscript.h>
#include <vector>

namespace desk {

/// The letters of texts in the scripts that the index of a locale lacks: those that the index of
/// the script's usual language has, as English for Latin, else all letters of the script.
class ScriptLetters {
public:
    /// The order compares base letters alone and must outlive this.
    explicit ScriptLetters(const icu::RuleBasedCollator& order) : order_(order) {}

    /// The character by which a text is sorted first: its first that the order does not ignore,
    /// without accents. Zero if there is none.
    UChar32 FirstOf(const icu::UnicodeString& text) const;
    /// The letter of a text whose first character is not a digit or a sign: the last of its script
    /// that does not come after it; the character itself for ideographs.
    icu::UnicodeString LetterOf(const icu::UnicodeString& text);

private:
    using Alphabet = std::vector<icu::UnicodeString>;
    const Alphabet& AlphabetOf(UScriptCode script);
    Alphabet MakeAlphabet(UScriptCode script) const;
    bool IsAmongLatin(const icu::UnicodeString& text, UChar32 first) const;
    bool IsBefore(const icu::UnicodeString& a, const icu::UnicodeString& b) const;
    void Sort(Alphabet& letters) const;

    const icu::RuleBasedCollator& order_;
    std::map<UScriptCode, Alphabet> alphabets_;
};

}  // namespace desk
