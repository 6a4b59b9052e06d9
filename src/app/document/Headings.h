#pragma once

#include <optional>
#include <string>
#include <utility>

#include "host/Elements.h"

namespace app {

/// Returns the text of a heading's row: all lines of its first cell that is not blank.
std::string HeadingText(const host::IHostGroupElement& row);

/// The headings of an index, from one column group or page to the next.
class HeadingSequence {
public:
    /// Takes the text over listings that go on, with the token of the letter; empty: there is none.
    explicit HeadingSequence(std::string continued) : continued_(std::move(continued)) {}

    /// Takes the next heading. Returns whether it repeats the heading before, over listings that go
    /// on. The first heading never does, even if its text says so.
    bool GoesOn(const std::string& heading);

private:
    std::string continued_;
    /// Of the last heading, and of what stands over its listings that go on: the texts without
    /// blanks and hyphens, where lines may end.
    /// @{
    std::optional<std::string> last_;
    std::string goesOn_;
    /// @}
};

}  // namespace app
