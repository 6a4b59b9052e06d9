#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unicode/alphaindex.h>
#include <unicode/tblcoll.h>
#include <unordered_map>

#include "desk/locale/ScriptLetters.h"

namespace desk {

/// The letters under which an index of a locale lists its entries: "Ä" is listed under A in German
/// and has a letter of its own in Swedish, "Ch" has one in Czech, and Japanese is listed by rows.
class IndexLetters {
public:
    /// Takes a name as IcuLocale::Name gives it. Throws host::Failure if ICU fails.
    explicit IndexLetters(const std::string& locale);

    /// Returns the letter of a text in capitals, empty for a text that begins with a digit or a
    /// sign. Texts in the locale's order have each letter in one run.
    std::string LetterOf(const std::string& text);

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    std::string Find(const std::string& text);
    bool BeginsWithLetter(const std::string& text) const;
    bool ListsIdeographsBySound() const;
    icu::UnicodeString InIndexBySound(const icu::UnicodeString& text,
                                      const icu::UnicodeString& letter) const;

    std::unique_ptr<icu::RuleBasedCollator> order_;
    std::unique_ptr<icu::AlphabeticIndex::ImmutableIndex> index_;
    ScriptLetters others_;
    unsigned char lastSign_ =
        0;  ///< First byte of the sort keys of digits, which follow all signs.
    bool bySound_ = false;
    bool prefixesDecide_ = true;
    std::unordered_map<std::string, std::string, Hash, std::equal_to<>> byPrefix_;
};

/// The letter for a field of a table: as LetterOf, and for a text that begins with a sign that of
/// its first letter, or "#" if a digit comes before it or there is none. Empty for an empty text.
std::string InitialOf(IndexLetters& letters, const std::string& text);

}  // namespace desk
