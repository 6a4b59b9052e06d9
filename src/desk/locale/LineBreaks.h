#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <vector>

namespace desk {

/// Where Unicode's rules, as the locale has them, let a line end.
class LineBreaks {
public:
    /// Throws host::Failure if ICU fails.
    explicit LineBreaks(const icu::Locale& locale);

    /// The offsets in bytes, ascending, at which a new line can begin; neither 0 nor the end.
    std::vector<std::size_t> In(std::string_view text);

private:
    std::unique_ptr<icu::BreakIterator> rules_;
};

}  // namespace desk
