#pragma once

#include "pdf/color/PressProfile.h"
#include "pdf/file/ObjectFile.h"

namespace pdf {

/// Writes sRGB as the colours that the file means. Returns the object number of the output intent.
/// Throws Error if the profile cannot be made.
int WriteScreenIntent(ObjectFile& file);

/// The same with the colours of a press.
int WritePressIntent(ObjectFile& file, const PressProfile& press);

}  // namespace pdf
