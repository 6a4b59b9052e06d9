#pragma once

#include <string>
#include <string_view>

#include "desk/text/PlainText.h"
#include "desk/text/RunShaper.h"

/// Whether a font's lines can be cut at blanks, those that keep a line together among them.
namespace desk {

inline constexpr std::string_view kNoBreakSpace = "\u00A0";

/// Whether the font may set a blank together with its neighbours or for their sake in another way
/// than by kerning it with one of them.
bool BlankMayJoin(hb_font_t* font, const Writing& writing);

/// A line in which letters of a class and digits meet across a blank, each with each. A rule for
/// any glyph between two others, which is no rule for blanks, shows in it.
std::string BlankTrial(const PlainClasses& plain, PlainClass script);

}  // namespace desk
