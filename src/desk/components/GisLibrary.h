#pragma once

#include <string>

#include "gis/module/GisModule.h"

namespace desk {

/// Returns the module that reads the sources of a GIS. Loads it at the first call; it then stays
/// loaded. Throws host::Failure that begins with what needs it, such as "Writing names.csv", and
/// names the package to install.
///
/// A program that runs from its build tree may have no such library yet: the command in the
/// environment variable GAZETTEER_GDAL_BUILD, if there is one, is then run to make it.
gis::GisModule& LoadGisModule(const std::string& purpose);

/// Whether loading it runs no such command.
bool GisModuleNeedsNoBuilding();

}  // namespace desk
