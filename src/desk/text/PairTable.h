#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "desk/text/FontCache.h"
#include "desk/text/GlyphLine.h"
#include "desk/text/PairRules.h"

namespace desk {

/// Sets plain lines in one font and writing from what the shaper told of single characters and of
/// pairs: the same glyphs at the same places as shaping the line, many times as fast. Learns each
/// character and pair when it first meets it.
class PairTable {
public:
    PairTable(const ResolvedFont& font, const Writing& writing);

    /// Width in 1024ths of a point. Nothing for a line that has to be shaped, for instance since
    /// letters join in it.
    std::optional<GlyphUnits> Width(std::string_view line);

    /// As Width, for a line of which the script is not known: nothing as well unless it holds a
    /// letter of this table's script. Spares most lines the search for their script.
    std::optional<GlyphUnits> WidthInScript(std::string_view line);

    /// Widths of the line's beginnings that end before the given bytes, which stand in ascending
    /// order on the bounds of characters. Each is what Width tells of that beginning alone, and
    /// they are added to the list; false where any of them has to be shaped.
    bool AddPrefixWidths(std::string_view line, std::span<const std::size_t> ends,
                         std::vector<GlyphUnits>& widths);

    /// What a character adds to the width of a line of the table's script that ends in the first
    /// one; without one, its own width. Nothing where that hangs on more than the two.
    std::optional<int> Step(std::string_view first, std::string_view second);

    /// Adds the glyphs of a line, and returns the width as Width. Nothing is added where the line
    /// has to be shaped.
    std::optional<GlyphUnits> Place(std::string_view line, GlyphStore& glyphs);

    /// The same for a line of which the script is not known, as WidthInScript.
    std::optional<GlyphUnits> PlaceInScript(std::string_view line, GlyphStore& glyphs);

private:
    /// The most different characters that are learnt; lines with others are shaped.
    static constexpr std::size_t kSlots = 256;
    static constexpr std::int32_t kUnknownPair = INT32_MIN;
    static constexpr std::int32_t kShapedPair = INT32_MIN + 1;

    enum class Kind : unsigned char {
        Shaped,   ///< Seen only in lines that are shaped.
        Steady,   ///< Always the same glyph.
        Joining,  ///< The same glyph, unless it joins with others at its side.
    };
    struct Character {
        std::string bytes;
        hb_codepoint_t glyph = 0;
        std::int32_t width = 0;
        Kind kind = Kind::Shaped;
        bool letter = false;  ///< Of the table's script, and not common to several.
    };
    using Slot = std::uint8_t;

    Slot SlotOf(char32_t letter, std::string_view bytes) {
        const Slot known = slots_[letter];
        return known != 0 ? known : LearnCharacter(letter, bytes);
    }
    Slot SlotOf(std::string_view character);
    std::int32_t PairWidth(Slot first, Slot second) {
        const std::int32_t known = pairs_[first * kSlots + second];
        return known != kUnknownPair ? known : LearnPair(first, second);
    }
    std::optional<GlyphUnits> Place(std::string_view line, GlyphStore& glyphs, bool needsLetters);
    template <class Visitor>
    std::optional<GlyphUnits> Walk(std::string_view line, Visitor&& visitor);
    Slot LearnCharacter(char32_t letter, std::string_view bytes);
    std::int32_t WidthOfFew(std::string_view characters);
    std::int32_t LearnPair(Slot first, Slot second);
    bool StaysUnjoined(std::string_view run);
    bool ShapesAsPairs(std::string_view text);

    hb_font_t* font_;
    const PlainClasses& plain_;
    Writing writing_;
    PairRules rules_;
    BufferHandle buffer_;
    std::array<Slot, kPlainTextLimit> slots_{};   ///< 0 where the character is not learnt yet.
    std::vector<Character> characters_;           ///< By slot; the first stands for all unlearnt.
    std::vector<std::int32_t> pairs_;             ///< What a pair adds to the first one's width.
    std::unordered_map<std::string, bool> runs_;  ///< Whether joining characters stay themselves.
    std::string scratch_;
};

}  // namespace desk
