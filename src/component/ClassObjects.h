#pragma once

#include <string_view>

#include "host/Component.h"

namespace gazetteer {

/// A new class object of a public class by its name; null for a name that is none.
host::Ref<host::IHostClassFactory> CreateClassObject(std::string_view className);

}  // namespace gazetteer
