#pragma once

#include <optional>
#include <string>

#include "host/Host.h"
#include "model/Keys.h"

/// KEY=VALUE of the command line: symbols are written "FAMILY,SIZE[,bold][,#RRGGBB]" (points) and
/// "#RRGGBB", lengths as decimal numbers of inches.
namespace app {

struct Assignment {
    std::string column;  ///< Empty for a key of the gazetteer; "*" for every column.
    std::string key;
    std::string value;  ///< Verbatim, blanks included.
};

/// The key ends at the first "=", the name of the column at the last "." before it. Throws a
/// UsageError without "=".
Assignment ParseAssignment(const std::string& text);

/// Returns the value of a text, by the kind of the key. Throws a UsageError that names key, value
/// and the expected form. Not for sets.
host::Variant ParseValue(host::IHost& host, const std::string& key, gazetteer::ValueKind kind,
                         const std::string& value);

/// Returns a stored value in the form that ParseValue takes.
std::string ValueText(const host::Variant& value);

/// Returns "#RRGGBB" of a colour of the host, which has red in its lowest byte.
std::string ColorText(std::uint32_t rgb);

/// Returns the shortest decimal text, with a point, that reads back as the same number.
std::string NumberText(double value);

/// Returns the finite number that a whole text is, with "." as separator; nothing for other texts.
std::optional<double> ParseDecimal(const std::string& text);

}  // namespace app
