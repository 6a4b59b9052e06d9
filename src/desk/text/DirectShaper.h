#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "desk/text/FontCache.h"
#include "desk/text/GlyphRun.h"
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

    /// Width of a line that is shaped.
    int ShapedWidth(const ResolvedFont& font, hb_script_t script, std::string_view line);

    /// Adds the glyphs of a line to the run. Returns its width.
    int Place(const ResolvedFont& font, hb_script_t script, std::string_view line, GlyphRun& run);

private:
    struct FontTables {
        std::unique_ptr<PairTable> common, latin, greek, cyrillic;
    };

    Writing WritingOf(hb_script_t script) const;
    PairTable& TableOf(const ResolvedFont& font, hb_script_t script);
    void AddShaped(std::string_view line, GlyphRun& run);

    hb_language_t common_;
    hb_language_t greek_;
    hb_language_t cyrillic_;
    std::vector<FontTables> tables_;  ///< By the fonts' numbers.
    BufferHandle buffer_;
};

}  // namespace desk
