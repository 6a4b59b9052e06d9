#include "layout/WideningCharacters.h"

#include <algorithm>
#include <span>

namespace gazetteer {
namespace {

// The first code point of a well-formed character and its length in bytes.
struct CodePoint {
    char32_t value;
    std::size_t bytes;
};

CodePoint FirstCodePoint(std::string_view text) {
    const auto byte = [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(text[i]));
    };
    const char32_t lead = byte(0);
    if (lead < 0x80 || text.size() < 2) return {lead, 1};
    if (lead < 0xE0 || text.size() < 3) return {(lead & 0x1FU) << 6 | (byte(1) & 0x3FU), 2};
    if (lead < 0xF0 || text.size() < 4)
        return {(lead & 0x0FU) << 12 | (byte(1) & 0x3FU) << 6 | (byte(2) & 0x3FU), 3};
    return {
        (lead & 0x07U) << 18 | (byte(1) & 0x3FU) << 12 | (byte(2) & 0x3FU) << 6 | (byte(3) & 0x3FU),
        4};
}

struct Range {
    char32_t first, last;
};

// Printable Latin, Greek and Cyrillic, general punctuation, and the ideographs, syllables and signs
// of East Asia.
constexpr Range kOnlyWiden[] = {
    {0x20, 0x7E},     {0xA0, 0xAC},     {0xAE, 0x24F},    {0x370, 0x3FF},   {0x400, 0x482},
    {0x48A, 0x52F},   {0x1E00, 0x1EFF}, {0x2010, 0x2027}, {0x3000, 0x3029}, {0x3041, 0x3096},
    {0x30A0, 0x30FF}, {0x3400, 0x9FFF}, {0xAC00, 0xD7A3}, {0xFF01, 0xFF60}};

constexpr Range kLetters[] = {
    {'A', 'Z'},       {'a', 'z'},       {0xC0, 0xD6},    {0xD8, 0xF6},     {0xF8, 0x24F},
    {0x388, 0x3FF},   {0x400, 0x482},   {0x48A, 0x52F},  {0x1E00, 0x1EFF}, {0x3041, 0x3096},
    {0x30A1, 0x30FA}, {0x3400, 0x9FFF}, {0xAC00, 0xD7A3}};

bool IsIn(std::span<const Range> ranges, std::string_view character) {
    const auto [value, bytes] = FirstCodePoint(character);
    return bytes == character.size() && std::ranges::any_of(ranges, [v = value](const Range& each) {
               return v >= each.first && v <= each.last;
           });
}

}  // namespace

bool OnlyWidens(std::string_view character) {
    return IsIn(kOnlyWiden, character);
}

bool IsPlainSign(std::string_view character) {
    constexpr char32_t kNoBreakSpace = 0xA0;
    const char32_t value = FirstCodePoint(character).value;
    return OnlyWidens(character) && (value < 0x7F || value == kNoBreakSpace) &&
           !IsLetterOfOneScript(character);
}

bool IsLetterOfOneScript(std::string_view character) {
    return IsIn(kLetters, character);
}

}  // namespace gazetteer
