#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <unicode/locid.h>
#include <unicode/ucnv.h>
#include <unordered_map>
#include <vector>

#include "desk/locale/PatternFile.h"
#include "desk/locale/WordLetters.h"

namespace desk {

/// Divides words by the hyphenation patterns of a language, where they are installed.
class WordDivider {
public:
    /// Where systems install patterns.
    static constexpr const char* kFolder = "/usr/share/hyphen";

    /// Reads the patterns of the locale. Without any, or with a file that is none, no word is
    /// divided.
    explicit WordDivider(const icu::Locale& locale, const std::filesystem::path& folder = kFolder);

    /// The offsets in bytes, ascending, before which a hyphen and the end of a line can stand, in
    /// each word of a text. Places where the spelling would change are left out.
    std::vector<std::size_t> Divisions(std::string_view text);

private:
    using Places = std::vector<std::size_t>;  ///< Letters behind which a word is divided.

    void Divide(const Word& word, std::vector<std::size_t>& divisions);
    Places PlacesIn(const std::string& text, std::size_t letters) const;
    std::string Encoded(const Word& word) const;

    struct Close {
        void operator()(UConverter* encoder) const { ucnv_close(encoder); }
    };
    std::unique_ptr<const PatternFile> patterns_;
    /// Of words in the patterns' encoding: a word is asked for when pages are numbered, and again
    /// when one is drawn.
    std::unordered_map<std::string, Places> known_;
    std::unique_ptr<UConverter, Close> encoder_;
};

}  // namespace desk
