#pragma once

#include <memory>

#include "faults/FaultyHost.h"

namespace faults {

/// Wraps the object of an interface. The classes are generated from the headers of the host.
template <class I>
class Faulty;

/// Whether the objects of an interface are wrapped wherever an operation answers one.
template <class I>
inline constexpr bool kWraps = false;

struct IsFaulty {
    virtual ~IsFaulty() = default;
};

template <class I>
host::Ref<I> Wrap(Faults& faults, host::Ref<I> real) {
    if (!real || dynamic_cast<const IsFaulty*>(real.get())) return real;
    return std::make_shared<Faulty<I>>(faults, std::move(real));
}

/// What the classes share.
template <class I, class... More>
class Wrapper : public I, public More..., public IsFaulty {
public:
    Wrapper(Faults& faults, host::Ref<I> real) : faults_(faults), real_(std::move(real)) {}
    static host::Ref<I> RealOf(const host::Ref<I>& object) {
        const auto* const faulty = dynamic_cast<const Wrapper*>(object.get());
        return faulty ? faulty->real_ : object;
    }

protected:
    template <class T>
    T& Real() const {
        return dynamic_cast<T&>(*real_);
    }
    template <class T>
    T Pass(T value) const {
        return value;
    }
    template <class T>
    host::Ref<T> Pass(host::Ref<T> object) const {
        if constexpr (kWraps<T>) object = Wrap(faults_, std::move(object));
        return object;
    }
    /// An object that is answered under a more general name.
    template <class T>
    host::Ref<T> PassAs(const host::Ref<host::IHostObject>& object) const {
        return Wrap(faults_, host::As<T>(object));
    }
    Faults& faults_;
    host::Ref<I> real_;
};

}  // namespace faults
