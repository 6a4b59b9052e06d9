#include "app/tables/Constants.h"

#include "app/document/Errors.h"

namespace app {

std::pair<std::string, std::string> ParseConstant(const std::string& text) {
    const auto equals = text.find('=');
    if (equals == std::string::npos || equals == 0)
        throw UsageError("--set " + Shown(text) + ": a constant is given as FIELD=VALUE.");
    return {text.substr(0, equals), text.substr(equals + 1)};
}

}  // namespace app
