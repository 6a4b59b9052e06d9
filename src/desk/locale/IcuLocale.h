#pragma once

#include <memory>
#include <string>
#include <unicode/brkiter.h>
#include <unicode/coll.h>

#include "desk/locale/NumberText.h"
#include "host/Locale.h"
#include "host/LocaleRules.h"

namespace desk {

class IndexLetters;
class LineBreaks;
class WordDivider;

/// The user's locale by ICU. Compares base letters and accents and ignores case. Bytes that are not
/// UTF-8 count as U+FFFD. Must be used by one thread.
///
/// Letters, line breaks and word divisions are made when they are first asked for.
class IcuLocale : public host::IHostLocale,
                  public host::IHostIndexLetters,
                  public host::IHostLineBreaks,
                  public host::IHostWritingDirection {
public:
    /// Accepts names such as "de_DE.UTF-8", "de-DE", "de@collation=phonebook" and "C". An empty
    /// name means the first of LC_ALL, LC_COLLATE and LANG that is set; if ICU does not know that
    /// locale, the root locale is used. Throws host::Failure for any other name without ICU data.
    explicit IcuLocale(const std::string& name = {});
    ~IcuLocale() override;

    int CompareText(const std::string& text1, const std::string& text2) override;
    std::string CollationKey(const std::string& text) override;
    std::optional<double> ParseNumber(const std::string& text) override {
        return numbers_.Parse(text);
    }
    std::string FormatNumber(double value) override { return numbers_.Format(value); }
    std::vector<std::size_t> Characters(std::string_view text) override;

    std::string IndexLetter(const std::string& text) override;
    std::vector<std::size_t> LineBreaks(std::string_view text) override;
    std::vector<std::size_t> WordDivisions(std::string_view word) override;
    bool IsRightToLeft() override { return locale_.isRightToLeft() != 0; }

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
    std::unique_ptr<IndexLetters> letters_;
    std::unique_ptr<desk::LineBreaks> lines_;
    std::unique_ptr<WordDivider> words_;
};

}  // namespace desk
