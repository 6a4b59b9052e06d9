#include "page/NumberTexts.h"

#include <limits>

namespace gazetteer {
namespace {

// Shows the decimal sign of the locale.
constexpr double kExample = 0.25;

}  // namespace

std::string RangeSentence(double byDefault, host::IHostLocale& locale) {
    return "Type a number such as " + locale.FormatNumber(kExample) + ", from " +
           locale.FormatNumber(-kLongest) + " to " + locale.FormatNumber(kLongest) +
           " (inches); until then " + locale.FormatNumber(byDefault) + " is used.";
}

std::string RangeSentence(std::int32_t byDefault, host::IHostLocale& locale) {
    using Limits = std::numeric_limits<std::int32_t>;
    return "Type a page number up to " + std::to_string(Limits::max()) + "; until then page " +
           locale.FormatNumber(byDefault) + " is used.";
}

}  // namespace gazetteer
