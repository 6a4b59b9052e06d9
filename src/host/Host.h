#pragma once

#include "host/DialogFactory.h"
#include "host/DisplayFactory.h"
#include "host/ElementFactory.h"
#include "host/GeometryFactory.h"
#include "host/MapBookFactory.h"
#include "host/PropertySetFactory.h"
#include "host/Services.h"
#include "host/SymbolFactory.h"
#include "host/TableFactory.h"

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
