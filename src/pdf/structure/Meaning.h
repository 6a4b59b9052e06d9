#pragma once

#include <cstdint>
#include <string_view>

#include "pdf/navigation/Target.h"

namespace pdf {

/// What a text is to someone who hears or searches the file.
enum class Role : std::uint8_t {
    Decoration,  ///< Nothing: leaders, backgrounds, frames.
    PageMatter,  ///< Belongs to the sheet, such as titles of columns.
    PageHead,    ///< A running head.
    PageFoot,    ///< A page number.
    Paragraph,   ///< Text that is no part of the index.
    Heading,     ///< Of the listings that follow.
    Name,        ///< What a listing is about.
    Reference,   ///< Where it is found.
};

/// What the texts that follow mean. The actual text is valid until they are shown; the language and
/// the target as long as the document is written.
struct Meaning {
    Role role = Role::Paragraph;
    /// Texts of one number that follow each other, on whatever pages, are one heading or paragraph;
    /// names and references of one number are one listing.
    std::uint64_t item = 0;
    /// As in "de-AT", where it differs from that of the document; else empty.
    std::string_view language = {};
    /// The text as it is read, where its glyphs stand in another order; else empty.
    std::string_view actualText = {};
    /// Where the text leads; null: nowhere. Must live as long as the document is written.
    const Target* target = nullptr;

    bool operator==(const Meaning&) const = default;
};

}  // namespace pdf
