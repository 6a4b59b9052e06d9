#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/Object.h"

/// Optional on an IHostLocale: rules of the locale for the pages of an index. Each has a plain way
/// beside it for hosts without it.
namespace host {

/// The letters under which an index of the locale lists its entries.
struct IHostIndexLetters : virtual IHostObject {
    /// The letter of a text, in capitals, as an index of the language writes it: A for "Ärmel" in
    /// German, CH for "Cheb" in Czech, a row of kana in Japanese. Texts in the order of CompareText
    /// have their letters in one run each. Empty for a text that begins with what the order counts
    /// as a digit or a sign, and for an empty one.
    virtual std::string IndexLetter(const std::string& text) = 0;
};

/// Where lines can end.
struct IHostLineBreaks : virtual IHostObject {
    /// Offsets in bytes, ascending, at which a new line can begin: after a hyphen or blanks,
    /// between ideographs. Neither 0 nor the end of the text.
    virtual std::vector<std::size_t> LineBreaks(std::string_view text) = 0;
    /// Offsets in bytes, ascending, at which the language divides a word with a hyphen; none where
    /// the host has no patterns for it.
    virtual std::vector<std::size_t> WordDivisions(std::string_view word) = 0;
};

/// The direction of the script.
struct IHostWritingDirection : virtual IHostObject {
    virtual bool IsRightToLeft() = 0;
};

}  // namespace host
