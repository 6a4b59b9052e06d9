#include "desk/locale/IcuLocale.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string_view>
#include <unicode/strenum.h>
#include <unicode/ulocdata.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>

#include "characters/Utf8.h"
#include "desk/locale/IndexLetters.h"
#include "desk/locale/LineBreaks.h"
#include "desk/locale/TextOrder.h"
#include "desk/locale/WordDivider.h"
#include "host/Failure.h"

namespace desk {
namespace {

/// ICU's C locale compares bytes, so a and A would differ. The root locale is used instead, which
/// has a neutral order.
bool IsPlainC(std::string_view name) {
    const std::string_view base = name.substr(0, name.find('.'));
    return base.empty() || base == "C" || base == "POSIX" || base == "root" || base == "und" ||
           base.starts_with("en_US_POSIX") || base.starts_with("en-US-posix");
}

bool HasLanguage(const icu::Locale& locale) {
    std::int32_t count = 0;
    const icu::Locale* known = icu::Locale::getAvailableLocales(count);
    return std::any_of(known, known + count, [&](const icu::Locale& candidate) {
        return std::strcmp(candidate.getLanguage(), locale.getLanguage()) == 0;
    });
}

bool HasCollation(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const auto wanted = locale.getKeywordValue<std::string>("collation", status);
    if (U_FAILURE(status) || wanted.empty()) return true;
    const std::unique_ptr<icu::StringEnumeration> values(
        icu::Collator::getKeywordValuesForLocale("collation", locale, false, status));
    while (U_SUCCESS(status)) {
        const char* value = values->next(nullptr, status);
        if (value == nullptr) return false;
        if (wanted == value) return true;
    }
    return false;
}

/// Moves the script that the C library puts after an @ to where ICU expects it: sr_RS.UTF-8@latin
/// becomes sr_Latn_RS. Other modifiers, such as euro, are kept; ICU ignores them.
std::string WithScript(const std::string& name) {
    struct Script {
        std::string_view modifier, code;
    };
    static constexpr Script kScripts[] = {
        {"@latin", "_Latn"}, {"@cyrillic", "_Cyrl"}, {"@devanagari", "_Deva"}};
    for (const auto& [modifier, code] : kScripts) {
        if (!name.ends_with(modifier)) continue;
        std::string base = name.substr(0, name.find_first_of(".@"));
        return base.insert(std::min(base.find('_'), base.size()), code);
    }
    return name;
}

icu::Locale Parse(const std::string& name) {
    if (name.find("-u-") == std::string::npos)
        return icu::Locale::createCanonical(WithScript(name).c_str());
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale = icu::Locale::forLanguageTag(name, status);
    return U_SUCCESS(status) ? locale : icu::Locale("");
}

std::optional<icu::Locale> Known(const std::string& name) {
    if (IsPlainC(name)) return icu::Locale::getRoot();
    const icu::Locale locale = Parse(name);
    if (locale.isBogus() || locale.getLanguage()[0] == '\0') return std::nullopt;
    if (!HasLanguage(locale) || !HasCollation(locale)) return std::nullopt;
    return locale;
}

std::string UserLocaleName() {
    for (const char* variable : {"LC_ALL", "LC_COLLATE", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0') return value;
    }
    return "C";
}

icu::Locale FindLocale(const std::string& name) {
    if (name.empty()) return Known(UserLocaleName()).value_or(icu::Locale::getRoot());
    const auto locale = Known(name);
    if (!locale)
        throw host::Failure(host::kFailureNotFound, "FindLocale",
                            "There is no locale named " + name + ".");
    return *locale;
}

[[noreturn]] void FailWithoutRules() {
    throw host::Failure(host::kFailureUnspecified, "IcuLocale",
                        "ICU has no rules for splitting text into characters.");
}

std::unique_ptr<icu::BreakIterator> MakeCharacterIterator() {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::BreakIterator> iterator(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    if (U_FAILURE(status)) FailWithoutRules();
    return iterator;
}

/// Below U+0300 each code point is a character, except CR before LF, which counts as two here. No
/// break rules are needed. Returns false for other or malformed texts.
bool SimpleLengths(std::string_view text, std::vector<std::size_t>& lengths) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        if (characters::NextCodePoint(text, at) >= 0x300) return false;
        lengths.push_back(at - start);
    }
    return true;
}

icu::StringPiece Piece(const std::string& text) {
    return {text.data(), static_cast<std::int32_t>(text.size())};
}

}  // namespace

IcuLocale::IcuLocale(const std::string& name)
    : locale_(FindLocale(name)),
      collator_(TextOrder(locale_)),
      numbers_(locale_),
      characters_(MakeCharacterIterator()) {}

IcuLocale::~IcuLocale() = default;

int IcuLocale::CompareText(const std::string& text1, const std::string& text2) {
    UErrorCode status = U_ZERO_ERROR;
    return collator_->compareUTF8(Piece(text1), Piece(text2), status);
}

std::string IcuLocale::CollationKey(const std::string& text) {
    const auto wide = icu::UnicodeString::fromUTF8(Piece(text));
    std::string key(wide.length() > 0 ? static_cast<std::size_t>(wide.length()) * 2 + 8 : 4, '\0');
    const auto fill = [&] {
        return collator_->getSortKey(wide, reinterpret_cast<std::uint8_t*>(key.data()),
                                     static_cast<std::int32_t>(key.size()));
    };
    auto needed = static_cast<std::size_t>(fill());
    if (needed > key.size()) {
        key.resize(needed);
        needed = static_cast<std::size_t>(fill());
    }
    key.resize(needed == 0 ? 0 : needed - 1);  // ICU terminates the key with a zero byte.
    return key;
}

std::vector<std::size_t> IcuLocale::Characters(std::string_view text) {
    std::vector<std::size_t> lengths;
    lengths.reserve(text.size());
    if (SimpleLengths(text, lengths)) return lengths;
    return CharactersByRules(text);
}

std::vector<std::size_t> IcuLocale::CharactersByRules(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    UText source = UTEXT_INITIALIZER;
    utext_openUTF8(&source, text.data(), static_cast<std::int64_t>(text.size()), &status);
    characters_->setText(&source, status);
    if (U_FAILURE(status)) FailWithoutRules();

    std::vector<std::size_t> lengths;
    std::size_t start = 0;
    characters_->first();
    for (std::int32_t next = characters_->next(); next != icu::BreakIterator::DONE;
         next = characters_->next()) {
        const auto end = static_cast<std::size_t>(next);
        const bool lineEnd = end - start == 2 && text.substr(start, 2) == "\r\n";
        if (lineEnd) lengths.push_back(1);
        lengths.push_back(lineEnd ? 1 : end - start);
        start = end;
    }
    utext_close(&source);
    return lengths;
}

std::string IcuLocale::IndexLetter(const std::string& text) {
    if (!letters_) letters_ = std::make_unique<IndexLetters>(Name());
    return letters_->LetterOf(text);
}

std::vector<std::size_t> IcuLocale::LineBreaks(std::string_view text) {
    if (!lines_) lines_ = std::make_unique<desk::LineBreaks>(locale_);
    return lines_->In(text);
}

std::vector<std::size_t> IcuLocale::WordDivisions(std::string_view word) {
    if (!words_) words_ = std::make_unique<WordDivider>(locale_);
    return words_->Divisions(word);
}

std::string IcuLocale::LanguageTag() const {
    if (Name().empty()) return {};
    UErrorCode error = U_ZERO_ERROR;
    const auto tag = icu::Locale(locale_.getBaseName()).toLanguageTag<std::string>(error);
    return U_SUCCESS(error) ? tag : std::string();
}

bool IcuLocale::UsesLetterFormat() const {
    if (Name().empty()) return true;
    constexpr std::int32_t kWidthOfA4 = 210;  // Millimetres.
    std::int32_t height = 0;
    std::int32_t width = kWidthOfA4;
    UErrorCode error = U_ZERO_ERROR;
    ulocdata_getPaperSize(locale_.getName(), &height, &width, &error);
    return U_SUCCESS(error) && width != kWidthOfA4;
}

}  // namespace desk
