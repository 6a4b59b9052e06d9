#include "UnicodeText.h"

#include <array>

namespace fuzz {
namespace {

struct Block {
    char32_t first, count;
};

/// Scripts with and without complex shaping, both directions; marks, joiners and direction
/// controls; blanks and dashes; symbols and emoji; characters without a font.
constexpr std::array<Block, 40> kBlocks = {{
    {0x20, 95},     {0x20, 95},     {0x61, 26},      {0x61, 26},     {0x41, 26},    {0x00, 32},
    {0xA0, 96},     {0x100, 336},   {0x250, 176},    {0x300, 112},   {0x370, 144},  {0x400, 304},
    {0x530, 96},    {0x590, 112},   {0x600, 256},    {0x900, 128},   {0xE00, 96},   {0xF00, 256},
    {0x1000, 160},  {0x10A0, 96},   {0x1100, 256},   {0x1780, 128},  {0x1E00, 512}, {0x2000, 112},
    {0x2070, 176},  {0x2100, 256},  {0x2190, 624},   {0x2E80, 384},  {0x3040, 192}, {0x4E00, 512},
    {0xAC00, 512},  {0xE000, 64},   {0xFB00, 80},    {0xFE00, 256},  {0xFF00, 240}, {0xFFF0, 16},
    {0x10000, 128}, {0x1D400, 256}, {0x1F000, 1024}, {0xE0000, 256},
}};
constexpr std::array<std::string_view, 8> kTexts = {"$$DOTS", "$$NEWLINE", " ",    " ",
                                                    "$$DOTS", "\r\n",      "....", "-"};

void Append(char32_t character, std::string& text) {
    const auto add = [&](char32_t lead, int shift) {
        text += static_cast<char>(lead | character >> shift);
        for (shift -= 6; shift >= 0; shift -= 6)
            text += static_cast<char>(0x80 | (character >> shift & 0x3F));
    };
    if (character < 0x80)
        text += static_cast<char>(character);
    else if (character < 0x800)
        add(0xC0, 6);
    else if (character < 0x10000)
        add(0xE0, 12);
    else
        add(0xF0, 18);
}

std::string FromPairs(Bytes& bytes, std::size_t longest) {
    std::string text;
    while (!bytes.AtEnd() && text.size() < longest) {
        const std::size_t choice = bytes.Byte() % (kBlocks.size() + kTexts.size());
        if (choice >= kBlocks.size()) {
            text += kTexts[choice - kBlocks.size()];
            continue;
        }
        const Block& block = kBlocks[choice];
        Append(block.first + bytes.Byte() * block.count / 256, text);
    }
    return text;
}

/// Returns the length in bytes of a well-formed character at the front; 0 if there is none.
std::size_t CharacterLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) return 1;
    const std::size_t length = lead >= 0xC2 && lead < 0xE0   ? 2
                               : lead >= 0xE0 && lead < 0xF0 ? 3
                               : lead >= 0xF0 && lead < 0xF5 ? 4
                                                             : 0;
    if (length == 0 || length > text.size()) return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xC0) != 0x80) return 0;
    const bool tooLong = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xF0 && byte(1) < 0x90);
    const bool none = (lead == 0xED && byte(1) >= 0xA0) || (lead == 0xF4 && byte(1) >= 0x90);
    return tooLong || none ? 0 : length;
}

}  // namespace

std::string Repaired(std::string_view bytes) {
    std::string text;
    while (!bytes.empty()) {
        const std::size_t length = CharacterLength(bytes);
        text += length == 0 ? std::string_view("\uFFFD") : bytes.substr(0, length);
        bytes.remove_prefix(length == 0 ? 1 : length);
    }
    return text;
}

std::string TakeUnicode(Bytes& bytes, std::size_t longest) {
    if (bytes.Byte() % 2 == 1) return FromPairs(bytes, longest);
    return Repaired(bytes.Rest().substr(0, longest));
}

}  // namespace fuzz
