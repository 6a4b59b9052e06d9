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

/// Makes every host object. It is passed in wherever an object is created, so that there is no
/// global host and a test can bring its own. Functions named New return a new object, except those
/// of IHostServices: their objects all stand for the one running program.
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
