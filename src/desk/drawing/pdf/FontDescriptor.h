#pragma once

#include <hb.h>
#include <string>

namespace desk::pdf {

/// The PostScript name of a font, as far as a name in the file can hold it.
std::string FontName(hb_face_t* face);

/// The entries of a font's descriptor that do not depend on its subset.
std::string DescriptorEntries(hb_face_t* face);

}  // namespace desk::pdf
