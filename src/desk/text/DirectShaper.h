#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "desk/text/FontCache.h"
#include "desk/text/GlyphLine.h"
#include "desk/text/PairTable.h"

namespace desk {

/// Sets lines of plain text with their font alone. Gives what LayoutShaper gives, many times as
/// fast. Widths are in 1024ths of a point.
class DirectShaper {
public:
    DirectShaper();

    /// Width of a line, where it can be told without shaping.
    std::optional<int> SumWidth(const ResolvedFont& font, hb_script_t script,
                                std::string_view line);

    /// Width of a line in the script of the last one that had letters, where it can be told without
    /// shaping and without looking for the line's script first.
    std::optional<int> SumWidthAsBefore(const ResolvedFont& font, std::string_view line);

    /// Widths of the beginnings of a line that end before the given bytes, where all can be told
    /// without shaping. As PairTable::AddPrefixWidths.
    bool SumPrefixWidths(const ResolvedFont& font, std::string_view line,
                         std::span<const std::size_t> ends, std::vector<int>& widths);

    /// What a character of Latin script, or common to all, adds to the width of a line that ends in
    /// the first one, as PairTable::Step. Nothing as well where that is not the same with and
    /// without letters in the line.
    std::optional<int> Step(const ResolvedFont& font, std::string_view first,
                            std::string_view second);

    /// Width of a line that is shaped.
    int ShapedWidth(const ResolvedFont& font, hb_script_t script, std::string_view line);

    /// Adds the glyphs of a line, and returns its width. Nothing for a line that is not plain.
    std::optional<int> Place(const ResolvedFont& font, std::string_view line, GlyphStore& glyphs);

private:
    struct FontTables {
        std::unique_ptr<PairTable> common, latin, greek, cyrillic;
    };

    Writing WritingOf(hb_script_t script) const;
    PairTable& TableOf(const ResolvedFont& font, hb_script_t script);
    PairTable& Remembered(const ResolvedFont& font, hb_script_t script);
    void AddShaped(std::string_view line, GlyphStore& glyphs);

    hb_language_t common_;
    hb_language_t greek_;
    hb_language_t cyrillic_;
    std::vector<FontTables> tables_;  ///< By the fonts' numbers.
    PairTable* last_ = nullptr;       ///< Of the last line with letters that was set,
    std::uint32_t lastFont_ = 0;      ///< in this font.
    BufferHandle buffer_;
};

}  // namespace desk
