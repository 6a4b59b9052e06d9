#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "model/Keys.h"
#include "model/Typesetting.h"

/// The table of keys that Typesetting stores.
namespace gazetteer {

struct TypesettingKey {
    const char* name;
    ValueKind kind;
    std::variant<bool Typesetting::*, std::int32_t Typesetting::*, double Typesetting::*,
                 std::string Typesetting::*>
        field;
    /// The texts that a String key can have; none: any text.
    std::array<const char*, 3> choices = {};
    Writer writer = Writer::User;
    std::int32_t most = 0;  ///< Of a Long key, which is never negative.

    std::span<const char* const> Choices() const;
};

/// The keys in the order in which they are stored.
std::span<const TypesettingKey> TypesettingKeys();

/// The entry of a name, compared exactly; null for an unknown one.
const TypesettingKey* FindTypesettingKey(std::string_view name);

/// A value under its key, as it is stored.
host::Variant ValueOf(const TypesettingKey& key, const Typesetting& typesetting);

/// Puts a value under its key, a whole number beyond its range as the nearest in it and a text that
/// is no choice of its key as the initial one. Fails for a value of another kind.
void SetValue(const TypesettingKey& key, const host::Variant& value, host::IHostLocale& locale,
              Typesetting& typesetting);

}  // namespace gazetteer
