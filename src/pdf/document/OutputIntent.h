#pragma once

#include "pdf/file/ObjectFile.h"

namespace pdf {

/// Writes sRGB as the colours that the file means. Returns the object number of the output intent.
/// Throws Error if the profile cannot be made.
int WriteScreenIntent(ObjectFile& file);

}  // namespace pdf
