#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "host/Object.h"

namespace host {

/// No value was ever stored.
struct Empty {
    bool operator==(const Empty&) const = default;
};

/// A table cell without a value.
struct Null {
    bool operator==(const Null&) const = default;
};

/// A value of the host: nothing, null, Boolean, Integer (16-bit), Long (32-bit), Double, String,
/// or an object.
using Variant = std::variant<Empty, Null, bool, std::int16_t, std::int32_t, double, std::string,
                             Ref<IHostObject>>;

}  // namespace host
