#include "desk/locale/IndexLetters.h"

#include <array>
#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/uiter.h>

#include "characters/Utf8.h"
#include "desk/locale/LetterPrefix.h"
#include "desk/locale/LocaleIndex.h"
#include "desk/locale/TextOrder.h"

namespace desk {
namespace {

std::string Utf8(const icu::UnicodeString& text) {
    std::string utf8;
    return text.toUTF8String(utf8);
}

/// The first byte of a text's sort key, by which ICU distinguishes signs, digits and scripts. Zero
/// for a text that the order ignores.
unsigned char LeadByte(const icu::RuleBasedCollator& order, const std::string& text) {
    UErrorCode status = U_ZERO_ERROR;
    UCharIterator characters;
    uiter_setUTF8(&characters, text.data(), static_cast<std::int32_t>(text.size()));
    std::array<std::uint32_t, 2> state = {};
    std::uint8_t byte = 0;
    ucol_nextSortKeyPart(order.toUCollator(), &characters, state.data(), &byte, 1, &status);
    return byte;
}

/// Some megabytes. Sorted names need only the last of them.
constexpr std::size_t kMostPrefixes = 30000;

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool AreLettersSortedAsSeveral(const icu::AlphabeticIndex::ImmutableIndex& index,
                               const icu::RuleBasedCollator& order) {
    for (std::int32_t i = 0; i < index.getBucketCount(); ++i) {
        const auto* const bucket = index.getBucket(i);
        // Labels such as "12劃", a number of strokes, are not what texts are compared with.
        const bool isLetter = bucket->getLabelType() == U_ALPHAINDEX_NORMAL &&
                              u_isalpha(bucket->getLabel().char32At(0)) != 0;
        if (isLetter && IsSortedAsSeveral(bucket->getLabel(), order)) return true;
    }
    return false;
}

}  // namespace

IndexLetters::IndexLetters(const std::string& locale)
    : order_(LetterOrder(icu::Locale(locale.c_str()))),
      index_(LocaleIndex(icu::Locale(locale.c_str()), *order_)),
      others_(*order_),
      lastSign_(LeadByte(*order_, "9")),
      bySound_(ListsIdeographsBySound()),
      prefixesDecide_(!AreLettersSortedAsSeveral(*index_, *order_)) {}

std::string IndexLetters::LetterOf(const std::string& text) {
    if (text.empty() || IsDigit(text.front())) return {};
    const std::size_t length = prefixesDecide_ ? LetterPrefix(text) : 0;
    if (length == 0) return Find(text);
    const std::string_view prefix(text.data(), length);
    if (const auto known = byPrefix_.find(prefix); known != byPrefix_.end()) return known->second;
    if (byPrefix_.size() == kMostPrefixes) byPrefix_.clear();
    return byPrefix_.emplace(prefix, Find(text)).first->second;
}

std::string IndexLetters::Find(const std::string& text) {
    const auto wide = icu::UnicodeString::fromUTF8(text);
    UErrorCode status = U_ZERO_ERROR;
    const auto* const bucket = index_->getBucket(index_->getBucketIndex(wide, status));
    const bool isListed = U_SUCCESS(status) != 0 && bucket != nullptr &&
                          bucket->getLabelType() == U_ALPHAINDEX_NORMAL;
    if (!isListed && !BeginsWithLetter(text)) return {};
    const icu::UnicodeString letter = isListed ? bucket->getLabel() : others_.LetterOf(wide);
    return Utf8(bySound_ ? InIndexBySound(wide, letter) : letter);
}

bool IndexLetters::BeginsWithLetter(const std::string& text) const {
    return LeadByte(*order_, text) > lastSign_;
}

/// Whether Chinese names are listed under the letters of another script, as in pinyin.
bool IndexLetters::ListsIdeographsBySound() const {
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString ideograph(UChar32{0x963F});  // The first by sound, "a".
    const auto* const bucket = index_->getBucket(index_->getBucketIndex(ideograph, status));
    if (bucket == nullptr || bucket->getLabelType() != U_ALPHAINDEX_NORMAL) return false;
    const UScriptCode script = uscript_getScript(bucket->getLabel().char32At(0), &status);
    return script == USCRIPT_LATIN || script == USCRIPT_BOPOMOFO;
}

/// Returns the heading in an index that lists ideographs by their sound, in Latin letters or in
/// Bopomofo. The order puts names that are written in these letters behind all ideographs, so they
/// get other headings: full-width capitals, or ㄅㄆㄇ.
icu::UnicodeString IndexLetters::InIndexBySound(const icu::UnicodeString& text,
                                                const icu::UnicodeString& letter) const {
    if (u_hasBinaryProperty(others_.FirstOf(text), UCHAR_IDEOGRAPHIC) != 0) return letter;
    constexpr UChar32 kWideA = 0xFF21;
    const UChar32 first = letter.char32At(0);
    if (first >= 'A' && first <= 'Z') return {kWideA + (first - 'A')};
    UErrorCode status = U_ZERO_ERROR;
    const bool isBopomofo = uscript_getScript(first, &status) == USCRIPT_BOPOMOFO;
    return isBopomofo ? icu::UnicodeString(u"ㄅㄆㄇ") : letter;
}

std::string InitialOf(IndexLetters& letters, const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const char32_t character = characters::NextCodePoint(text, at);
        if (character == characters::kNotUtf8) continue;
        if (u_isdigit(static_cast<UChar32>(character)) != 0) break;
        if (u_isalpha(static_cast<UChar32>(character)) == 0) continue;
        std::string letter = letters.LetterOf(start == 0 ? text : text.substr(start));
        if (!letter.empty()) return letter;
    }
    return text.empty() ? "" : "#";
}

}  // namespace desk
