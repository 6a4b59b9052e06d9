#pragma once

#include <string>

#include "desk/drawing/pdf/ObjectFile.h"

namespace desk::pdf {

/// Writes title, program and creation date as the file's information dictionary. The date is taken
/// from SOURCE_DATE_EPOCH and omitted without it. Returns the object's number.
int WriteInfo(ObjectFile& file, const std::string& title);

/// Writes the same as XMP, which readers and archives search. Returns the object's number.
int WriteXmp(ObjectFile& file, const std::string& title);

}  // namespace desk::pdf
