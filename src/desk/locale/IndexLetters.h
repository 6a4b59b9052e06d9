#pragma once

#include <memory>
#include <string>
#include <unicode/alphaindex.h>

namespace desk {

/// The letters under which an index of a locale lists its entries: "Ä" is listed under A in German
/// and has a letter of its own in Swedish, "Ch" has one in Czech, and Japanese is listed by rows.
class IndexLetters {
public:
    /// Takes a name as IcuLocale::Name gives it. Throws host::Failure if ICU fails.
    explicit IndexLetters(const std::string& locale);

    /// Returns the letter of a text in capitals; "#" for one that begins with no letter, and the
    /// capital of the first letter for a script that the locale's index does not have. Empty for an
    /// empty text.
    std::string LetterOf(const std::string& text) const;

private:
    std::unique_ptr<icu::AlphabeticIndex::ImmutableIndex> index_;
};

}  // namespace desk
