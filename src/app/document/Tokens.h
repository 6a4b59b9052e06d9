#pragma once

#include <functional>
#include <string>
#include <string_view>

/// The words behind "$$" in the texts of a gazetteer.
namespace app {

/// Returns the first word with its "$$" for which `isKnown` is false; empty if there is none. Words
/// have capitals and underscores.
std::string UnknownToken(const std::string& text,
                         const std::function<bool(std::string_view token)>& isKnown);

/// Returns a text without the tokens that are resolved at drawing; new lines become blanks.
std::string WithoutTokens(std::string text);

}  // namespace app
