#pragma once

#include <string>
#include <string_view>

namespace desk {

/// The side of a line on which its leader is.
enum class LeaderSide {
    Right,
    Reading,  ///< The end of the line in its own reading direction.
};

/// Returns the line as Pango expects it: separators become blanks, because only LF ends a line, and
/// malformed bytes become U+FFFD.
std::string Readable(std::string_view line);

/// Returns the offset of the dots that end the line, or its size if there is no leader. A leader
/// has at least two dots; a single one may belong to an abbreviation.
std::size_t LeaderStart(std::string_view line);

/// Adds direction marks to a right-to-left line: the name keeps its own direction, and the leader
/// continues to the given side.
std::string WithLeader(std::string line, LeaderSide side);

}  // namespace desk
