#pragma once

#include <memory>
#include <string>
#include <unicode/brkiter.h>
#include <unicode/coll.h>

#include "desk/locale/NumberText.h"
#include "host/Locale.h"

namespace desk {

/// The user's locale by ICU. Compares base letters and accents and ignores case. Bytes that are not
/// UTF-8 count as U+FFFD. Must be used by one thread.
class IcuLocale : public host::IHostLocale {
public:
    /// Accepts names such as "de_DE.UTF-8", "de-DE", "de@collation=phonebook" and "C". An empty
    /// name means the first of LC_ALL, LC_COLLATE and LANG that is set; if ICU does not know that
    /// locale, the root locale is used. Throws host::Failure for any other name without ICU data.
    explicit IcuLocale(const std::string& name = {});

    int CompareText(const std::string& text1, const std::string& text2) override;
    std::string CollationKey(const std::string& text) override;
    std::optional<double> ParseNumber(const std::string& text) override {
        return numbers_.Parse(text);
    }
    std::string FormatNumber(double value) override { return numbers_.Format(value); }
    std::vector<std::size_t> Characters(std::string_view text) override;

    /// Language and region as in "de-AT"; empty for the root locale.
    std::string LanguageTag() const;
    /// Whether printers of the region use the Letter format, as for the root locale, or A4.
    bool UsesLetterFormat() const;
    /// ICU's name of the locale in use, such as "de_DE"; empty for the root.
    std::string Name() const { return locale_.getName(); }

private:
    std::vector<std::size_t> CharactersByRules(std::string_view text);

    icu::Locale locale_;
    std::unique_ptr<icu::Collator> collator_;
    NumberText numbers_;
    std::unique_ptr<icu::BreakIterator> characters_;
};

}  // namespace desk
