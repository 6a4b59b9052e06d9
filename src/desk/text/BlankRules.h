#pragma once

#include <string>
#include <string_view>

#include "desk/text/PlainText.h"
#include "desk/text/RunShaper.h"

/// Decides whether lines in a font can be split at blanks and no-break spaces.
namespace desk {

inline constexpr std::string_view kNoBreakSpace = "\u00A0";

/// Returns whether the font may change a blank or its neighbours because of each other, other than
/// by kerning a pair.
bool BlankMayJoin(hb_font_t* font, const Writing& writing);

/// Returns a line in which each letter of a class and each digit meets every other across a blank.
/// Shaping it reveals contextual rules that name no blank but match any glyph.
std::string BlankTrial(const PlainClasses& plain, PlainClass script);

}  // namespace desk
