#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "desk/text/FontCache.h"

namespace desk {

/// Keeps a letter and its combining marks in one font. A layout asks for a font character by
/// character: where the font has a letter but not its mark, the mark came from another font and
/// stood at a height that does not fit the letter.
class WholeLetters {
public:
    explicit WholeLetters(PangoContext* context) : context_(context) {}

    /// The text, with a letter and its marks composed into one character where the font has that,
    /// and with an attribute for the first other font that has them all where it has not.
    std::string Of(const ResolvedFont& font, std::string text, PangoAttrList* attributes);

    /// A part of the text made last as it was written, so that a file gives back what it was given.
    std::string Written(std::string_view part, std::size_t start) const;

private:
    /// A letter that was composed, in the text made of it.
    struct Composed {
        std::size_t start = 0, length = 0;
        std::string written;
    };

    std::string Mended(const ResolvedFont& font, std::string letter, std::size_t start,
                       PangoAttrList* attributes);
    const std::string& FamilyFor(const ResolvedFont& font, std::string_view letter);

    PangoContext* context_;
    std::vector<Composed> composed_;  ///< Of the text made last, in its order.
    /// Families found so far, by font and letter; empty where no font has it all.
    std::map<std::pair<std::uint32_t, std::string>, std::string> families_;
};

}  // namespace desk
