#pragma once

#include <filesystem>
#include <optional>
#include <unicode/locid.h>

namespace desk {

/// The hyphenation patterns of a locale among the files of a folder, named as hyph_de_AT.dic: those
/// of its language, script and region, else of the language's own region, else of any. Nothing if
/// the folder has none or cannot be read.
std::optional<std::filesystem::path> HyphenationFile(const icu::Locale& locale,
                                                     const std::filesystem::path& folder);

}  // namespace desk
