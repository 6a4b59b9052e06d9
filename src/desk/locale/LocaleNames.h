#pragma once

#include <string>
#include <vector>

namespace desk {

/// A locale's name, such as "cs" or "de_AT", or what its language is called.
struct LocaleName {
    std::string locale;
    std::string text;  ///< The name itself, or "Czech", or "čeština".
};

/// Returns the names of all locales that ICU knows, and those of languages in English and in the
/// language itself.
std::vector<LocaleName> LocaleNames();

}  // namespace desk
