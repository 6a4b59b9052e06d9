#pragma once

#include <array>
#include <cstdint>
#include <hb.h>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace pdf {

/// The code of a glyph in a string.
struct Code {
    std::array<char, 2> bytes{};
    unsigned char count = 1;  ///< Number of bytes.
    void AppendTo(std::string& out) const {
        out += bytes[0];
        if (count > 1) out += bytes[1];
    }
    std::uint32_t Number() const {
        const std::uint32_t first = static_cast<unsigned char>(bytes[0]);
        return count == 1 ? first : first << 8 | static_cast<unsigned char>(bytes[1]);
    }
};

/// The codes of a font, assigned when a glyph is first used. A glyph has one code per text that it
/// represents (a blank and a no-break space share a glyph), so that the code determines the text.
/// No code needs an escape in a string. ASCII characters keep their own byte.
class CodeTable {
public:
    /// Lengths of the codes, in bytes: 186 codes of one byte, with 8192 codes of two in OneAndTwo;
    /// 16384 codes of two in Two.
    enum class Lengths { One, OneAndTwo, Two };

    struct Entry {
        Code code;
        hb_codepoint_t glyph = 0;
        std::string text;
        double width = 0;  ///< Thousandths of the font size.
    };

    explicit CodeTable(Lengths lengths);

    /// Returns null for a glyph and text without a code. The result is valid until the next Add.
    const Entry* Find(hb_codepoint_t glyph, std::string_view text) const {
        const std::uint32_t packed = Packed(text);
        if (packed != 0 && glyph < quick_.size())
            for (const Quick& quick : quick_[glyph])
                if (quick.text == packed) return &entries_[quick.entry];
        return FindSlowly(glyph, text);
    }

    /// Assigns a code. Returns null if none is free.
    const Entry* Add(hb_codepoint_t glyph, std::string_view text, double width);

    const std::vector<Entry>& Entries() const { return entries_; }
    /// Returns the first and last code of each length, in CMap syntax.
    std::vector<std::string> Ranges() const;

private:
    /// Packs a text of up to three bytes and its length; 0 for longer texts.
    static std::uint32_t Packed(std::string_view text) {
        std::uint32_t packed = 0;
        if (text.size() > 3) return 0;
        for (const char byte : text) packed = packed << 8 | static_cast<unsigned char>(byte);
        return packed | static_cast<std::uint32_t>(text.size()) << 24;
    }
    const Entry* FindSlowly(hb_codepoint_t glyph, std::string_view text) const;
    bool RememberQuickly(hb_codepoint_t glyph, std::uint32_t packed, std::uint32_t index);
    bool TakeShort(std::string_view text, Code& code);
    bool TakeLong(Code& code);

    struct Quick {
        std::uint32_t text = 0;
        std::uint32_t entry = 0;
    };

    Lengths lengths_;
    std::vector<Entry> entries_;
    /// By glyph: the first two codes with short texts. Usually only the blank has two.
    std::vector<std::array<Quick, 2>> quick_;
    std::unordered_map<std::string, std::size_t> others_;  ///< By glyph and text.
    std::string freeCodes_;  ///< One-byte codes for non-ASCII texts; taken from the end.
    std::array<bool, 128> taken_{};
    unsigned longCodes_ = 0;
};

}  // namespace pdf
