#include "desk/locale/ScriptLetters.h"

#include <algorithm>
#include <memory>
#include <string>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/ulocdata.h>
#include <unicode/uniset.h>
#include <unicode/usetiter.h>

#include "desk/locale/LocaleIndex.h"

namespace desk {
namespace {

/// The two kanas are one alphabet.
UScriptCode ScriptOf(UChar32 character) {
    UErrorCode status = U_ZERO_ERROR;
    const UScriptCode script = uscript_getScript(character, &status);
    return script == USCRIPT_KATAKANA ? USCRIPT_HIRAGANA : script;
}

/// Scripts of thousands of ideographs: each is its own letter. So is a character of no script.
bool IsItsOwnLetter(UChar32 character, UScriptCode script) {
    return u_hasBinaryProperty(character, UCHAR_IDEOGRAPHIC) != 0 || script == USCRIPT_HAN ||
           script <= USCRIPT_INHERITED || script == USCRIPT_UNKNOWN;
}

/// A sign such as U+2135, made of a letter, as that letter; any other character itself.
UChar32 InScript(UChar32 character) {
    if (ScriptOf(character) > USCRIPT_INHERITED) return character;
    UErrorCode status = U_ZERO_ERROR;
    const auto plain =
        icu::Normalizer2::getNFKDInstance(status)->normalize(icu::UnicodeString(character), status);
    for (std::int32_t at = 0; at < plain.length(); at = plain.moveIndex32(at, 1))
        if (ScriptOf(plain.char32At(at)) > USCRIPT_INHERITED) return plain.char32At(at);
    return character;
}

icu::UnicodeSet LettersOf(UScriptCode script) {
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeSet letters, ofScript;
    letters.applyIntPropertyValue(UCHAR_GENERAL_CATEGORY_MASK, U_GC_L_MASK, status);
    ofScript.applyIntPropertyValue(UCHAR_SCRIPT, script, status);
    letters.retainAll(ofScript);
    return letters;
}

/// What the index of the script's most likely language has of these letters.
icu::UnicodeSet UsualLetters(UScriptCode script, const icu::UnicodeSet& letters) {
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale locale((std::string("und_") + uscript_getShortName(script)).c_str());
    locale.addLikelySubtags(status);
    const std::unique_ptr<ULocaleData, decltype(&ulocdata_close)> data(
        ulocdata_open(locale.getLanguage(), &status), &ulocdata_close);
    icu::UnicodeSet usual;
    ulocdata_getExemplarSet(data.get(), usual.toUSet(), 0, ULOCDATA_ES_INDEX, &status);
    if (U_FAILURE(status) != 0) return {};
    usual.retainAll(letters);
    return usual;
}

}  // namespace

bool ScriptLetters::IsBefore(const icu::UnicodeString& a, const icu::UnicodeString& b) const {
    UErrorCode status = U_ZERO_ERROR;
    return order_.compare(a, b, status) == UCOL_LESS;
}

UChar32 ScriptLetters::FirstOf(const icu::UnicodeString& text) const {
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString plain =
        icu::Normalizer2::getNFDInstance(status)->normalize(text, status);
    for (std::int32_t at = 0; at < plain.length(); at = plain.moveIndex32(at, 1)) {
        const UChar32 character = plain.char32At(at);
        if (IsBefore({}, character)) return InScript(character);
    }
    return 0;
}

/// Leaves one of the letters that the order does not distinguish, that without an accent.
void ScriptLetters::Sort(Alphabet& letters) const {
    const std::unique_ptr<icu::RuleBasedCollator> accents(order_.clone());
    accents->setStrength(icu::Collator::TERTIARY);
    std::sort(letters.begin(), letters.end(), [&](const auto& a, const auto& b) {
        UErrorCode status = U_ZERO_ERROR;
        return accents->compare(a, b, status) == UCOL_LESS;
    });
    const auto same = [this](const auto& a, const auto& b) { return !IsBefore(a, b); };
    letters.erase(std::unique(letters.begin(), letters.end(), same), letters.end());
}

ScriptLetters::Alphabet ScriptLetters::MakeAlphabet(UScriptCode script) const {
    const icu::UnicodeSet all = LettersOf(script);
    Alphabet letters;
    const auto add = [&](const icu::UnicodeSet& set, const auto& isWanted) {
        for (icu::UnicodeSetIterator each(set); each.next() != 0;) {
            const icu::UnicodeString letter(u_totitle(each.getCodepoint()));
            // A letter that is sorted as two would divide the first of them.
            if (isWanted(letter) && !IsSortedAsSeveral(letter, order_)) letters.push_back(letter);
        }
    };
    add(UsualLetters(script, all), [](const auto&) { return true; });
    Sort(letters);
    // Letters before those of the usual index have no other to be listed under.
    const auto first = letters.empty() ? icu::UnicodeString() : letters.front();
    add(all, [&](const auto& letter) { return first.isEmpty() || IsBefore(letter, first); });
    Sort(letters);
    return letters;
}

const ScriptLetters::Alphabet& ScriptLetters::AlphabetOf(UScriptCode script) {
    const auto [place, isNew] = alphabets_.try_emplace(script);
    if (isNew) place->second = MakeAlphabet(script);
    return place->second;
}

/// Whether a sign of no script, such as U+214D, is sorted as a Latin letter.
bool ScriptLetters::IsAmongLatin(const icu::UnicodeString& text, UChar32 first) const {
    return ScriptOf(first) <= USCRIPT_INHERITED && !IsBefore(text, u"A") &&
           IsBefore(text, u"Z\uFFFF");
}

icu::UnicodeString ScriptLetters::LetterOf(const icu::UnicodeString& text) {
    const UChar32 first = FirstOf(text);
    const UScriptCode script = IsAmongLatin(text, first) ? USCRIPT_LATIN : ScriptOf(first);
    if (IsItsOwnLetter(first, script)) return {first};
    const Alphabet& alphabet = AlphabetOf(script);
    if (alphabet.empty()) return {first};
    const auto after =
        std::upper_bound(alphabet.begin(), alphabet.end(), text,
                         [this](const auto& a, const auto& b) { return IsBefore(a, b); });
    return after == alphabet.begin() ? alphabet.front() : *(after - 1);
}

}  // namespace desk
