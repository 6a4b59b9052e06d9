#pragma once

#include <memory>
#include <unicode/locid.h>
#include <unicode/tblcoll.h>

namespace desk {

/// The order of texts in a locale: base letters and accents count, case and the encoding of accents
/// do not. Throws host::Failure if ICU fails.
std::unique_ptr<icu::RuleBasedCollator> TextOrder(const icu::Locale& locale);

/// The same order by base letters alone, the primary differences.
std::unique_ptr<icu::RuleBasedCollator> LetterOrder(const icu::Locale& locale);

}  // namespace desk
