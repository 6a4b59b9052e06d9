#pragma once

#include <cstdint>
#include <deque>
#include <vector>

#include "desk/text/Handles.h"
#include "desk/text/PlainText.h"
#include "desk/text/TextEngine.h"

namespace desk {

/// The one language of all texts, since the user's own would choose among fonts and letter forms:
/// the same document must give the same pages everywhere.
inline constexpr const char* kTextLanguage = "en";

/// The font that a FontSpec leads to.
struct ResolvedFont {
    FontSpec spec;
    std::uint32_t number = 0;  ///< Counts the fonts of one cache from 0.
    FontDescriptionHandle description;
    GObjectHandle<PangoFont> font;
    hb_font_t* shaping = nullptr;            ///< Owned by font; 1024 units are a point.
    cairo_scaled_font_t* drawing = nullptr;  ///< Owned by font.
    double ascent = 0;                       ///< Points above the baseline.
    double lineHeight = 0;                   ///< Points; ascent and descent, no gap between lines.
    PlainClasses plain{};                    ///< Of the characters that the font itself has.
};

/// Finds fonts once and keeps them.
class FontCache {
public:
    FontCache();

    const ResolvedFont& Find(const FontSpec& spec);

    const std::vector<FontSubstitution>& Substitutions() const { return substitutions_; }
    PangoContext* Context() const { return context_.get(); }

private:
    const ResolvedFont& Resolve(const FontSpec& spec);
    void NoteSubstitution(const ResolvedFont& font);

    GObjectHandle<PangoFontMap> map_;
    GObjectHandle<PangoContext> context_;
    std::deque<ResolvedFont> fonts_;  ///< Addresses are handed out and must not change.
    const ResolvedFont* last_ = nullptr;
    std::vector<FontSubstitution> substitutions_;
};

}  // namespace desk
