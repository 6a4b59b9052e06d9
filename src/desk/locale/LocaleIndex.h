#pragma once

#include <memory>
#include <unicode/alphaindex.h>
#include <unicode/tblcoll.h>

namespace desk {

/// ICU's index of a locale, with the letters A to Z too where the locale's script is Latin: names
/// abroad begin with a Q or a W that the language does without. Buckets follow the order, and none
/// occurs twice. Throws host::Failure if ICU fails.
std::unique_ptr<icu::AlphabeticIndex::ImmutableIndex> LocaleIndex(
    const icu::Locale& locale, const icu::RuleBasedCollator& order);

/// Whether the order sorts a label as several letters, such as IE in a language that sorts it as I
/// and E.
bool IsSortedAsSeveral(const icu::UnicodeString& label, const icu::RuleBasedCollator& order);

}  // namespace desk
