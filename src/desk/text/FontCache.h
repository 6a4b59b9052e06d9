#pragma once

#include <cstdint>
#include <deque>
#include <vector>

#include "desk/text/Handles.h"
#include "desk/text/PlainText.h"
#include "desk/text/TextEngine.h"

namespace desk {

/// The language of all texts. The user's language would affect the choice of fonts and letter
/// forms, but a document must give the same pages everywhere.
inline constexpr const char* kTextLanguage = "en";

/// The font found for a FontSpec.
struct ResolvedFont {
    FontSpec spec;
    std::uint32_t number = 0;  ///< Number in its cache, from 0.
    FontDescriptionHandle description;
    GObjectHandle<PangoFont> font;
    hb_font_t* shaping = nullptr;            ///< Owned by font; 1024 units per point.
    cairo_scaled_font_t* drawing = nullptr;  ///< Owned by font.
    double ascent = 0;                       ///< Points above the baseline.
    double lineHeight = 0;                   ///< Points; ascent plus descent, without line gap.
    PlainClasses plain{};                    ///< Of the characters in the font.
};

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
    std::deque<ResolvedFont> fonts_;  ///< A deque keeps the addresses of its elements.
    const ResolvedFont* last_ = nullptr;
    std::vector<FontSubstitution> substitutions_;
};

}  // namespace desk
