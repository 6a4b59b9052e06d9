#pragma once

#include <memory>
#include <string>

#include "host/Component.h"

namespace desk {

/// A loaded component library. It stays loaded while this object or an instance created by it
/// exists, and longer if the component reports live objects.
class ComponentLibrary {
public:
    /// Throws for a file that is missing or is not a component.
    explicit ComponentLibrary(const std::string& file);

    /// Returns a new instance of a class. Throws if the component does not have the class.
    host::Ref<host::IHostObject> CreateInstance(const std::string& className,
                                                const host::Ref<host::IHost>& host) const;
    /// Calls the component's registration (install true) or removal; throws what that throws.
    void Register(const host::Ref<host::IHost>& host, bool install) const;
    /// Returns true if no object of the component is alive.
    bool CanUnload() const;

private:
    struct Loaded;
    std::shared_ptr<const Loaded> loaded_;
};

}  // namespace desk
