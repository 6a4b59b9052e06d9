#pragma once

#include <string>

#include "host/Host.h"
#include "model/Keys.h"

/// KEY=VALUE of the command line.
namespace app {

struct Assignment {
    std::string column;  ///< Empty for a key of the gazetteer; "*" for every column.
    std::string key;
    std::string value;  ///< Verbatim, blanks included.
};

/// The key ends at the first "=", the column's name at the last "." before it. Raises a UsageError
/// without "=".
Assignment ParseAssignment(const std::string& text);

/// The variant that a text stands for, by the kind of the key. Raises a UsageError that names key,
/// value and the form expected. Not for sets.
host::Variant ParseValue(host::IHost& host, const std::string& key, gazetteer::ValueKind kind,
                         const std::string& value);

/// A stored value in the form that ParseValue takes.
std::string ValueText(const host::Variant& value);

}  // namespace app
