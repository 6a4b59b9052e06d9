#include "app/document/Tokens.h"

#include <algorithm>

#include "model/Results.h"
#include "support/Text.h"

namespace app {

std::string UnknownToken(const std::string& text,
                         const std::function<bool(std::string_view token)>& isKnown) {
    for (auto at = text.find("$$"); at != std::string::npos; at = text.find("$$", at)) {
        const auto end =
            std::min(text.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ_", at + 2), text.size());
        std::string token = text.substr(at, end - at);
        if (!isKnown(token)) return token;
        at = end;
    }
    return {};
}

std::string WithoutTokens(std::string text) {
    for (const char* token : {gazetteer::kDotsToken, gazetteer::kLastCombineToken})
        text = gazetteer::ReplaceAll(std::move(text), token, "");
    return gazetteer::ReplaceAll(std::move(text), gazetteer::kNewLineToken, " ");
}

}  // namespace app
