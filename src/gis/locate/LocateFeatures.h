#pragma once

#include "gis/module/Locate.h"

namespace gis {

/// Finds the sheets and squares in which the features of a job lie. Throws host::Failure with one
/// sentence that names the source and the fault. The result does not depend on the number of
/// threads.
LocateResult LocateFeatures(const LocateJob& job);

}  // namespace gis
