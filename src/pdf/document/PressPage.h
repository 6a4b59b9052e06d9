#pragma once

#include <string>

#include "pdf/color/PageColors.h"
#include "pdf/color/PressProfile.h"

/// Pages that are larger than the sheet, which is cut out of them. The origin stays the lower left
/// corner of the sheet. Sizes are those of the sheet, in points.
namespace pdf {

/// Returns the boxes of a page as entries of its object: of the sheet alone where the file is not
/// for a press, else also those of the sheet and of its bleed in the page. Throws Error for a page
/// that is larger than readers show.
std::string PageBoxes(const Press* press, double width, double height);

/// Returns the content of a page, cut at its bleed, and the marks outside of it.
std::string InsideMarks(const std::string& content, const Press& press, double width, double height,
                        PageColors& colors);

}  // namespace pdf
