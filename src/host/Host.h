#pragma once

#include "host/Display.h"
#include "host/Elements.h"
#include "host/Geometry.h"
#include "host/MapBook.h"
#include "host/ObjectDialogs.h"
#include "host/PropertySet.h"
#include "host/Services.h"
#include "host/Symbols.h"
#include "host/Tables.h"

namespace host {

/// Makes every host object. It is handed in wherever an object is created, so that there is no
/// global host and a test can bring its own. Each New gives a new object; services are shared.
struct IHost : virtual IHostPropertySetFactory,
               virtual IHostGeometryFactory,
               virtual IHostSymbolFactory,
               virtual IHostElementFactory,
               virtual IHostDisplayFactory,
               virtual IHostDialogFactory,
               virtual IHostTableFactory,
               virtual IHostMapBookFactory,
               virtual IHostServices {};

}  // namespace host
