#pragma once

#include <memory>
#include <string>
#include <unicode/coll.h>

#include "desk/locale/CharacterLengths.h"
#include "desk/locale/NumberText.h"
#include "host/Locale.h"

namespace desk {

/// The user's locale by ICU: a collator that sees base letters and accents but not case. Bytes that
/// are not UTF-8 count as U+FFFD. Not safe for use by two threads.
class IcuLocale : public host::IHostLocale {
public:
    /// Names as FindLocale takes them; empty is the user's.
    explicit IcuLocale(const std::string& name = {});
    ~IcuLocale() override;

    int CompareText(const std::string& text1, const std::string& text2) override;
    std::string CollationKey(const std::string& text) override;
    std::optional<double> ParseNumber(const std::string& text) override;
    std::string FormatNumber(double value) override;
    std::vector<std::size_t> Characters(std::string_view text) override;

    /// ICU's name of the locale in use, such as "de_DE"; empty for the root.
    std::string Name() const { return locale_.getName(); }

private:
    icu::Locale locale_;
    std::unique_ptr<icu::Collator> collator_;
    NumberText numbers_;
    CharacterLengths characters_;
};

}  // namespace desk
