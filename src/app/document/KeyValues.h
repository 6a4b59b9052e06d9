#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/Host.h"
#include "model/Keys.h"
#include "model/TypesettingKeys.h"

/// KEY=VALUE assignments of the command line. Text symbols are written
/// "FAMILY,SIZE[,bold][,italic][,COLOUR]" (points), colours "#RRGGBB" or inks
/// (pdf/color/ColorText.h), lengths as decimal numbers of inches.
namespace app {

struct Assignment {
    std::string column;  ///< Empty for a key of the gazetteer; "*" for every column.
    std::string key;
    std::string value;  ///< Verbatim, blanks included.
};

/// Splits at the first "="; the column ends at the key's last ".". Throws UsageError without "=".
Assignment ParseAssignment(const std::string& text);

/// Parses a value by the kind of its key. Throws UsageError with the key, the value and the
/// expected form. Not for sets.
host::Variant ParseValue(host::IHost& host, const std::string& key, gazetteer::ValueKind kind,
                         const std::string& value);

/// The same for a key of typesetting, with its choices and range.
host::Variant ParseTypesettingValue(host::IHost& host, const gazetteer::TypesettingKey& key,
                                    const std::string& name, const std::string& value);

/// Returns a stored value in the form that ParseValue accepts.
std::string ValueText(const host::Variant& value);

/// Returns the item of this name in a set; Empty if it has none.
host::Variant ItemOf(host::IHostPropertySet& set, std::string_view name);

/// Returns the shortest decimal text, with a point, that reads back as the same number.
std::string NumberText(double value);

/// Parses a finite number with "." as separator; returns nothing for other texts.
std::optional<double> ParseDecimal(const std::string& text);

}  // namespace app
