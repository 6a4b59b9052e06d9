#include "desk/locale/HyphenationFile.h"

#include <string>
#include <string_view>
#include <system_error>
#include <tuple>

namespace desk {
namespace {

constexpr std::string_view kBefore = "hyph_";
constexpr std::string_view kEnding = ".dic";

/// Bokmal is what files and systems also call Norwegian.
std::string Language(const icu::Locale& locale) {
    const std::string language = locale.getLanguage();
    return language == "nb" ? "no" : language;
}

/// With script and region, if only by what is most likely.
icu::Locale Whole(icu::Locale locale) {
    UErrorCode status = U_ZERO_ERROR;
    locale.addLikelySubtags(status);
    return locale;
}

/// The locale whose patterns a file of this name has; bogus for other files.
icu::Locale LocaleOf(const std::string& name) {
    icu::Locale locale;
    locale.setToBogus();
    if (name.size() <= kBefore.size() + kEnding.size() || !name.starts_with(kBefore) ||
        !name.ends_with(kEnding))
        return locale;
    return icu::Locale(
        name.substr(kBefore.size(), name.size() - kBefore.size() - kEnding.size()).c_str());
}

}  // namespace

std::optional<std::filesystem::path> HyphenationFile(const icu::Locale& locale,
                                                     const std::filesystem::path& folder) {
    if (locale.getLanguage()[0] == '\0') return std::nullopt;  // The root locale.
    const icu::Locale wanted = Whole(locale);
    const icu::Locale usual = Whole(icu::Locale(locale.getLanguage()));
    const auto isOf = [](const icu::Locale& file, const icu::Locale& region) {
        return std::string_view(file.getCountry()) == region.getCountry();
    };
    // Smaller is better; the name makes the choice the same everywhere.
    using Rank = std::tuple<bool, bool, std::string>;
    std::optional<Rank> best;
    std::error_code error;
    for (std::filesystem::directory_iterator file(folder, error), end; !error && file != end;
         file.increment(error)) {
        const std::string name = file->path().filename().string();
        icu::Locale found = LocaleOf(name);
        if (found.isBogus() != 0) continue;
        found = Whole(found);
        if (Language(found) != Language(wanted) ||
            std::string_view(found.getScript()) != wanted.getScript())
            continue;
        Rank rank(!isOf(found, wanted), !isOf(found, usual), name);
        if (!best || rank < *best) best = std::move(rank);
    }
    if (!best) return std::nullopt;
    return folder / std::get<std::string>(*best);
}

}  // namespace desk
