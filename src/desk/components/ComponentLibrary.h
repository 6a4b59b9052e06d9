#pragma once

#include <memory>
#include <string>

#include "host/Component.h"

namespace desk {

/// A component's library, loaded. It stays loaded as long as this object or an instance that it has
/// made is there, and beyond where the component says that something of it is still alive.
class ComponentLibrary {
public:
    /// Fails for a file that is not there, or that is no component.
    explicit ComponentLibrary(const std::string& file);

    /// A new instance of a class. Fails for a class that the component does not have.
    host::Ref<host::IHostObject> CreateInstance(const std::string& className,
                                                const host::Ref<host::IHost>& host) const;
    /// Has the component enter itself with the host or take itself out; fails as it does.
    void Register(const host::Ref<host::IHost>& host, bool install) const;
    /// Whether no object of the component is alive.
    bool CanUnload() const;

private:
    struct Loaded;
    std::shared_ptr<const Loaded> loaded_;
};

/// Path of a component's library that belongs to this program: in the folder lib beside the one
/// that the program stands in.
std::string LibraryOfProgram(const std::string& name);

}  // namespace desk
