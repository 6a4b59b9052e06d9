#include "desk/text/LayoutText.h"

#include "desk/text/Handles.h"

namespace desk {
namespace {

constexpr const char* kLeftToRightMark = "\u200E";
constexpr const char* kRightToLeftMark = "\u200F";
constexpr const char* kFirstStrongIsolate = "\u2068";
constexpr const char* kPopIsolate = "\u2069";

/// Characters at which Pango would end the line, and the tab. A tab stop would depend on the widths
/// of boxes of missing characters, which Pango does not compute reproducibly.
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
