#pragma once

#include <cstddef>
#include <typeinfo>

namespace host {

/// dynamic_cast to an interface that remembers the answer for the class asked last. Between classes
/// with virtual bases a dynamic_cast costs more than making the object. Within objects of one class
/// an interface has a fixed offset.
///
/// Use it for one pass over objects: it must not outlive the library that a class comes from.
template <class Wanted>
class KnownCast {
public:
    /// Null for an object without the interface.
    template <class Object>
    Wanted* operator()(Object* object) {
        if (!object) return nullptr;
        const auto* const whole = static_cast<const std::byte*>(dynamic_cast<const void*>(object));
        const std::type_info* const type = &typeid(*object);
        if (type != type_) {
            auto* const wanted = dynamic_cast<Wanted*>(object);
            type_ = type;
            has_ = wanted != nullptr;
            if (has_) offset_ = reinterpret_cast<const std::byte*>(wanted) - whole;
        }
        if (!has_) return nullptr;
        return reinterpret_cast<Wanted*>(const_cast<std::byte*>(whole + offset_));
    }

private:
    const std::type_info* type_ = nullptr;  ///< Of the object asked last.
    bool has_ = false;
    std::ptrdiff_t offset_ = 0;
};

}  // namespace host
