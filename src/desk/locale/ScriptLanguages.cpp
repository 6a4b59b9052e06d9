#include "desk/locale/ScriptLanguages.h"

#include <algorithm>
#include <array>
#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include "characters/Utf8.h"

namespace desk {
namespace {

std::set<int> ScriptsOf(const std::string& tag) {
    std::array<UScriptCode, 8> scripts{};
    UErrorCode error = U_ZERO_ERROR;
    const auto locale = icu::Locale::forLanguageTag(tag, error);
    const int count = uscript_getCode(locale.getName(), scripts.data(),
                                      static_cast<std::int32_t>(scripts.size()), &error);
    if (U_FAILURE(error)) return {};
    return {scripts.begin(), scripts.begin() + count};
}

/// Returns the script of the first letter; USCRIPT_COMMON without one.
int ScriptOf(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = characters::NextCodePoint(text, at);
        if (character == characters::kNotUtf8 || !u_isalpha(static_cast<UChar32>(character)))
            continue;
        UErrorCode error = U_ZERO_ERROR;
        const auto script = uscript_getScript(static_cast<UChar32>(character), &error);
        if (script != USCRIPT_INHERITED && script != USCRIPT_COMMON) return script;
    }
    return USCRIPT_COMMON;
}

std::string LanguageOf(int script) {
    UErrorCode error = U_ZERO_ERROR;
    icu::Locale locale(
        (std::string("und_") + uscript_getShortName(static_cast<UScriptCode>(script))).c_str());
    locale.addLikelySubtags(error);
    return U_SUCCESS(error) ? locale.getLanguage() : "";
}

}  // namespace

ScriptLanguages::ScriptLanguages(const std::string& tag) {
    if (tag.empty()) return;
    own_ = ScriptsOf(tag);
    latinIsOwn_ = own_.empty() || own_.contains(USCRIPT_LATIN);
}

std::string_view ScriptLanguages::Of(std::string_view text) {
    if (own_.empty()) return {};
    const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
    if (latinIsOwn_ && std::ranges::all_of(text, isAscii)) return {};
    const int script = ScriptOf(text);
    if (script == USCRIPT_COMMON || own_.contains(script)) return {};
    const auto known = languages_.find(script);
    if (known != languages_.end()) return known->second;
    return languages_.emplace(script, LanguageOf(script)).first->second;
}

}  // namespace desk
