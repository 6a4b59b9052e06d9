#pragma once

#include <memory>

namespace host {

/// Reference-counted handle of a host object. Null stands for "no object".
template <class T>
using Ref = std::shared_ptr<T>;

/// Base of all interfaces of the host. They inherit it virtually, so that one object may implement
/// several of them; As tests for an interface.
struct IHostObject {
    IHostObject() = default;
    IHostObject(const IHostObject&) = delete;
    IHostObject& operator=(const IHostObject&) = delete;
    virtual ~IHostObject() = default;
};

/// The object seen as T, or null if it is not of that kind.
template <class T, class U>
Ref<T> As(const Ref<U>& object) {
    return std::dynamic_pointer_cast<T>(object);
}

/// Something that can give an independent deep copy of itself.
struct IHostClonable : virtual IHostObject {
    virtual Ref<IHostObject> Copy() const = 0;
};

}  // namespace host
