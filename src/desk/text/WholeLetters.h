#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "desk/text/FontCache.h"

namespace desk {

/// Keeps a letter and its combining marks in one font. Pango selects fonts per character: if a font
/// has a letter but not its mark, the mark would come from another font, at a height that does not
/// fit.
class WholeLetters {
public:
    explicit WholeLetters(PangoContext* context) : context_(context) {}

    /// Returns the text with letters and marks composed where the font has the composed character;
    /// for other letters it adds an attribute with the first fallback font that has letter and
    /// marks.
    std::string Of(const ResolvedFont& font, std::string text, PangoAttrList* attributes);

    /// Returns a part of the text made last in its original form, for the text in the PDF.
    std::string Written(std::string_view part, std::size_t start) const;

private:
    /// A composed letter: its place in the new text and its original form.
    struct Composed {
        std::size_t start = 0, length = 0;
        std::string written;
    };

    std::string Mended(const ResolvedFont& font, std::string letter, std::size_t start,
                       PangoAttrList* attributes);
    const std::string& FamilyFor(const ResolvedFont& font, std::string_view letter);

    PangoContext* context_;
    std::vector<Composed> composed_;  ///< In the text made last, in order.
    /// Families found so far, by font and letter; empty if no font has all of it.
    std::map<std::pair<std::uint32_t, std::string>, std::string> families_;
};

}  // namespace desk
