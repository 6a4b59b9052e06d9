#pragma once

#include <memory>

#include "desk/session/Desk.h"

/// The gazetteer's component that is installed with the program, as
/// ../lib/gazetteer/libCVNGazetteer.so beside it. It brings the property pages. The library is
/// loaded for the call alone.
namespace app {

/// Registers the component with the desk, or removes it. Throws CommandError without the library.
void RegisterOwnComponent(const std::shared_ptr<desk::Desk>& desk, bool install);

/// Registers the component if the user has no list of components yet, or one that names it or
/// another copy of it: an earlier version may stand elsewhere or have fewer pages. A user who has
/// removed it has a list without it.
void RegisterNewComponent(const std::shared_ptr<desk::Desk>& desk);

}  // namespace app
