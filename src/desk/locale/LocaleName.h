#pragma once

#include <string>
#include <unicode/locid.h>

namespace desk {

/// The ICU locale of a name: "de_DE.UTF-8", "de-DE", "de@collation=phonebook", "C". The empty name
/// is the user's, from the first of LC_ALL, LC_COLLATE and LANG that is set; a user's locale that
/// ICU does not know is its root. Fails for any other name that ICU has no data for.
icu::Locale FindLocale(const std::string& name);

}  // namespace desk
