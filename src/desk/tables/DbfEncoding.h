#pragma once

#include <shapefil.h>

#include "desk/tables/DbfSchema.h"

namespace desk {

/// Finds the encoding of a table's texts and sets it: by the .cpg file beside it, by its language
/// driver, or else UTF-8 where all texts are that and windows-1252 where they are not. Reads the
/// records only where neither file nor driver tells. An encoding that is not known is noted where
/// it matters.
void FindEncoding(DbfSchema& schema, DBFHandle library);

}  // namespace desk
