#pragma once

#include <string>
#include <utility>

namespace app {

/// Parses "FIELD=VALUE", a field that has the same value in each record. Throws UsageError for
/// another form.
std::pair<std::string, std::string> ParseConstant(const std::string& text);

}  // namespace app
