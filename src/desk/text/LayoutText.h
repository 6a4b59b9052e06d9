#pragma once

#include <string>
#include <string_view>

namespace desk {

/// The side of a line at which the dots of its leader stand.
enum class LeaderSide {
    Right,
    Reading,  ///< The end at which the line's own direction of reading ends.
};

/// The line as a layout takes it: with blanks for separators, since only LF ends a line, and with
/// U+FFFD for whatever is not UTF-8.
std::string Readable(std::string_view line);

/// Where the dots begin that end the line, or its end where there is no leader. A leader is two
/// dots or more; one may be that of an abbreviation.
std::size_t LeaderStart(std::string_view line);

/// A line from right to left with marks of direction: the name keeps its own direction, and the
/// leader runs on from it to the side asked for.
std::string WithLeader(std::string line, LeaderSide side);

}  // namespace desk
