#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

#include "model/ColumnProperties.h"
#include "model/Settings.h"

/// The two tables of keys that a gazetteer and a column store. Defaults, reading, rewriting, the
/// command line and the property page all use these tables.
namespace gazetteer {

/// Types of stored values, as the writer stores them.
enum class ValueKind { Boolean, Integer, Long, Double, String, Set, TextSymbol, FillSymbol };

/// Who changes the value under a key.
enum class Writer {
    User,  ///< The user's edits.
    Run,   ///< A run, or the rules of editing; never the user directly.
};

/// Where a gazetteer's value stands in Settings; the type fits the kind.
using SettingsField =
    std::variant<bool Settings::*, std::int32_t Settings::*, double Settings::*,
                 std::string Settings::*, host::Ref<host::IHostPropertySet> Settings::*>;

struct PropertyKey {
    const char* name;
    ValueKind kind;
    SettingsField field;
    Writer writer = Writer::User;
    int sinceVersion = 1;  ///< Schema version that brought the key.
};

/// The 30 keys of a gazetteer, in the order in which they are stored.
std::span<const PropertyKey> PropertyKeys();

/// Where a column's value stands in ColumnProperties; the type fits the kind.
using ColumnField = std::variant<bool ColumnProperties::*, std::int32_t ColumnProperties::*,
                                 double ColumnProperties::*, std::string ColumnProperties::*,
                                 host::Ref<host::IHostTextSymbol> ColumnProperties::*,
                                 host::Ref<host::IHostFillSymbol> ColumnProperties::*>;

struct ColumnKey {
    const char* name;
    ValueKind kind;
    ColumnField field;
    bool storedOnly = false;  ///< Nothing but the property page reads it.
    Writer writer = Writer::User;
};

/// The 24 keys of a column, in the order in which they are stored.
std::span<const ColumnKey> ColumnKeys();

/// A column's value under a key, as it is stored. Symbols are shared with the column.
host::Variant ValueOf(const ColumnKey& key, const ColumnProperties& column);

/// The entry of a name, compared exactly; null for an unknown one.
const PropertyKey* FindPropertyKey(std::string_view name);
const ColumnKey* FindColumnKey(std::string_view name);

/// Largest magnitude of a length in inches, about five of the largest sheets. All decimal numbers
/// that a user sets are lengths.
inline constexpr double kLongest = 1000;

/// False also for NaN.
constexpr bool IsLength(double inches) {
    return inches >= -kLongest && inches <= kLongest;
}

}  // namespace gazetteer
