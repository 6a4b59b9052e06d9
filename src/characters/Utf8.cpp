#include "characters/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <unicode/utf8.h>

namespace characters {

char32_t NextOfAnyLength(std::string_view text, std::size_t& place) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data()) + place;
    // No character is longer than U8_MAX_LENGTH; a whole text may exceed ICU's lengths of 32 bits.
    const auto length =
        static_cast<std::int32_t>(std::min<std::size_t>(text.size() - place, U8_MAX_LENGTH));
    std::int32_t taken = 0;
    UChar32 character = 0;
    U8_NEXT(bytes, taken, length, character);
    place += static_cast<std::size_t>(taken);
    return character < 0 ? kNotUtf8 : static_cast<char32_t>(character);
}

std::size_t WholeCharacters(std::string_view text) {
    for (std::size_t back = 1; back < U8_MAX_LENGTH && back <= text.size(); ++back) {
        const auto byte = static_cast<std::uint8_t>(text[text.size() - back]);
        if (U8_IS_TRAIL(byte)) continue;
        const std::size_t wanted = U8_IS_LEAD(byte) ? U8_COUNT_TRAIL_BYTES(byte) + 1 : 1;
        return wanted > back ? text.size() - back : text.size();
    }
    return text.size();
}

}  // namespace characters
