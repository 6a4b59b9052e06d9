#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "desk/text/FontCache.h"
#include "desk/text/GlyphLine.h"
#include "desk/text/PairTable.h"
#include "host/Symbols.h"

namespace desk {

/// Sets lines of plain text with their font alone. Gives what LayoutShaper gives, many times as
/// fast. Widths are in 1024ths of a point.
class DirectShaper {
public:
    DirectShaper();

    /// Width of a line, where it can be told without shaping.
    std::optional<GlyphUnits> SumWidth(const ResolvedFont& font, hb_script_t script,
                                       std::string_view line);

    /// Width of a line in the script of the last one that had letters, where it can be told without
    /// shaping and without looking for the line's script first.
    std::optional<GlyphUnits> SumWidthAsBefore(const ResolvedFont& font, std::string_view line);

    /// Widths of the beginnings of a line that end before the given bytes, where all can be told
    /// without shaping. As PairTable::AddPrefixWidths.
    bool SumPrefixWidths(const ResolvedFont& font, std::string_view line,
                         std::span<const std::size_t> ends, std::vector<GlyphUnits>& widths);

    /// The steps of a line, by the promises of host::IHostTextSteps, where they can be told without
    /// shaping.
    bool SumSteps(const ResolvedFont& font, std::string_view line,
                  std::vector<host::TextStep>& steps);

    /// Width of a line that is shaped.
    GlyphUnits ShapedWidth(const ResolvedFont& font, hb_script_t script, std::string_view line);

    /// Adds the glyphs of a line, and returns its width. Nothing for a line that is not plain.
    std::optional<GlyphUnits> Place(const ResolvedFont& font, std::string_view line,
                                    GlyphStore& glyphs);

private:
    /// A character of a line, and 0 as the one before the first.
    struct Letter {
        char32_t code = 0;
        std::string_view bytes;
    };
    std::int32_t GeneralStep(const ResolvedFont& font, const Letter& first, const Letter& second);
    std::int32_t FindGeneralStep(const ResolvedFont& font, const Letter& first,
                                 const Letter& second);

    struct FontTables {
        std::unique_ptr<PairTable> common, latin, greek, cyrillic;
        std::vector<std::int32_t> generalSteps;  ///< By two characters of Latin-1.
    };

    Writing WritingOf(hb_script_t script) const;
    FontTables& TablesOf(const ResolvedFont& font);
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
    /// @{ Kept for their storage.
    std::vector<std::size_t> ends_;
    std::vector<GlyphUnits> sums_;
    /// @}
};

}  // namespace desk
