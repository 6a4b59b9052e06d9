#pragma once

#include <cstdint>
#include <string>

#include "host/Tables.h"

/// How a component meets its host: it lives in a shared library with four entry points, and its
/// property pages are found through the host's registrar.
namespace host {

struct IHost;

/// The category of the property pages of elements.
inline constexpr char kElementPropertyPages[] = "{6E3C1C5A-4D0B-4B57-9A3E-2C8F5B7D1E94}";

/// The host's list of which classes of which components serve which category.
struct IHostComponentRegistrar : virtual IHostObject {
    /// Enters a class under a category, or removes it. Repeating a call changes nothing.
    virtual void RegisterComponent(const std::string& componentFile,
                                   const Ref<IHostIdentifier>& classId,
                                   const Ref<IHostIdentifier>& categoryId, bool install) = 0;
};

/// Makes instances of one class of a component.
struct IHostClassFactory : virtual IHostObject {
    virtual Ref<IHostObject> CreateInstance(const Ref<IHost>& host) = 0;
};

/// The entry points of a component's library and the names they are exported under. None of them
/// throws.
/// @{

/// The class object of a class by its name; null for a name that the component does not have.
using CreateClassObjectEntry = void (*)(const char* className, Ref<IHostClassFactory>* factory);
inline constexpr char kCreateClassObject[] = "ComponentCreateClassObject";

/// Registers the component with the host, or unregisters it. Returns 0, or the failure's number
/// with its description in message.
using RegisterEntry = std::int32_t (*)(const Ref<IHost>* host, std::string* message);
inline constexpr char kRegister[] = "ComponentRegister";
inline constexpr char kUnregister[] = "ComponentUnregister";

/// Whether no object of the component is alive, so that its library may be unloaded.
using CanUnloadEntry = bool (*)();
inline constexpr char kCanUnload[] = "ComponentCanUnload";

/// @}

}  // namespace host
