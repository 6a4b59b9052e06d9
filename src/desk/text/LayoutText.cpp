#include "desk/text/LayoutText.h"

#include "desk/text/Handles.h"

namespace desk {
namespace {

constexpr const char* kLeftToRightMark = "\u200E";
constexpr const char* kRightToLeftMark = "\u200F";
constexpr const char* kFirstStrongIsolate = "\u2068";
constexpr const char* kPopIsolate = "\u2069";

/// A layout would end a line at these as well, or go on at a stop of its own: behind the box of a
/// character without a font, whose width it does not tell the same twice, nor would the stop be.
bool IsSeparator(gunichar character) {
    return character == 0x85 || character == 0x2028 || character == 0x2029 || character == '\t';
}

}  // namespace

std::string Readable(std::string_view line) {
    const GStringHandle valid(g_utf8_make_valid(line.data(), static_cast<gssize>(line.size())));
    std::string text;
    for (const char* place = valid.get(); *place;) {
        const char* const next = g_utf8_find_next_char(place, nullptr);
        if (IsSeparator(g_utf8_get_char(place)))
            text += ' ';
        else
            text.append(place, next);
        place = next;
    }
    return text;
}

std::size_t LeaderStart(std::string_view line) {
    constexpr std::size_t kFewestDots = 2;
    const std::size_t start = line.find_last_not_of('.') + 1;
    return line.size() - start < kFewestDots ? line.size() : start;
}

std::string WithLeader(std::string line, LeaderSide side) {
    line.insert(LeaderStart(line), kPopIsolate);
    line.insert(0, kFirstStrongIsolate);
    return line.insert(0, side == LeaderSide::Right ? kLeftToRightMark : kRightToLeftMark);
}

}  // namespace desk
