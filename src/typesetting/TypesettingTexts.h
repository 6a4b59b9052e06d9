#pragma once

#include <array>
#include <span>
#include <string_view>

#include "model/Typesetting.h"
#include "sample/SampleIndex.h"

/// What the page says of each setting, and where its control stands.
namespace gazetteer {

/// The boxes of the page, in the order in which they are listed.
enum class SettingGroup { Headings, Lines, Leaders, Page };
inline constexpr std::array<const char*, 4> kGroupTitles = {"Headings", "Lines", "Leaders", "Page"};

struct SettingText {
    const char* key;
    SettingGroup group;
    const char* label;  ///< With a mnemonic; a colon where a field follows.
    const char* toolTip;
    Subject subject = Subject::Nothing;
    /// The choices of the key, in words; for a text, what an empty box shows.
    std::array<const char*, 3> words = {};
    /// Whether the setting has an effect beside the others; null: always.
    bool (*isUsed)(const Typesetting&) = nullptr;
};

/// A row for each key that the user sets, in the order of the page.
std::span<const SettingText> SettingTexts();

}  // namespace gazetteer
