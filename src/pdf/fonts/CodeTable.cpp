#include "pdf/fonts/CodeTable.h"

namespace pdf {
namespace {

// The first byte of a two-byte code is at least kFirstLead if one-byte codes exist, else at least
// kFirstTrail. The second byte is always at least kFirstTrail.
constexpr unsigned kFirstLead = 0xC0;
constexpr unsigned kFirstTrail = 0x80;
constexpr unsigned kTrails = 0x80;

/// OpenType's limit. Pango's numbers for missing characters are far above it.
constexpr hb_codepoint_t kMostGlyphs = 0x10000;

/// Bytes that need an escape or that readers of strings change.
bool IsSpecial(unsigned byte) {
    return byte == '(' || byte == ')' || byte == '\\' || byte == '\r' || byte == '\n' || byte == 0;
}

bool IsPrintable(unsigned byte) {
    return byte >= ' ' && byte <= '~';
}

std::string ShortCodes() {
    std::string codes;
    for (unsigned byte = 1; byte < kFirstLead; ++byte)
        if (!IsPrintable(byte) && !IsSpecial(byte)) codes += static_cast<char>(byte);
    return {codes.rbegin(), codes.rend()};
}

std::string KeyOf(hb_codepoint_t glyph, std::string_view text) {
    return std::to_string(glyph).append(" ").append(text);
}

}  // namespace

CodeTable::CodeTable(Lengths lengths) : lengths_(lengths), freeCodes_(ShortCodes()) {}

const CodeTable::Entry* CodeTable::FindSlowly(hb_codepoint_t glyph, std::string_view text) const {
    const auto found = others_.find(KeyOf(glyph, text));
    return found != others_.end() ? &entries_[found->second] : nullptr;
}

const CodeTable::Entry* CodeTable::Add(hb_codepoint_t glyph, std::string_view text, double width) {
    Entry entry{{}, glyph, std::string(text), width};
    const bool taken = (lengths_ != Lengths::Two && TakeShort(text, entry.code)) ||
                       (lengths_ != Lengths::One && TakeLong(entry.code));
    if (!taken) return nullptr;
    const std::uint32_t packed = Packed(text);
    const auto index = static_cast<std::uint32_t>(entries_.size());
    if (packed == 0 || !RememberQuickly(glyph, packed, index))
        others_.emplace(KeyOf(glyph, text), index);
    return &entries_.emplace_back(std::move(entry));
}

bool CodeTable::RememberQuickly(hb_codepoint_t glyph, std::uint32_t packed, std::uint32_t index) {
    if (glyph >= kMostGlyphs) return false;
    if (quick_.size() <= glyph) quick_.resize(glyph + 1);
    for (Quick& place : quick_[glyph]) {
        if (place.text != 0) continue;
        place = {packed, index};
        return true;
    }
    return false;
}

bool CodeTable::TakeShort(std::string_view text, Code& code) {
    const unsigned byte = text.size() == 1 ? static_cast<unsigned char>(text[0]) : 0;
    if (IsPrintable(byte) && !IsSpecial(byte) && !taken_[byte]) {
        taken_[byte] = true;
        code.bytes[0] = text[0];
        return true;
    }
    if (freeCodes_.empty()) return false;
    code.bytes[0] = freeCodes_.back();
    freeCodes_.pop_back();
    return true;
}

bool CodeTable::TakeLong(Code& code) {
    const unsigned lead =
        (lengths_ == Lengths::Two ? kFirstTrail : kFirstLead) + longCodes_ / kTrails;
    if (lead > 0xFF) return false;
    code.bytes = {static_cast<char>(lead), static_cast<char>(kFirstTrail + longCodes_ % kTrails)};
    code.count = 2;
    ++longCodes_;
    return true;
}

std::vector<std::string> CodeTable::Ranges() const {
    if (lengths_ == Lengths::Two) return {"<0000><FFFF>"};
    if (longCodes_ > 0) return {"<00><BF>", "<C080><FFFF>"};
    return {"<00><FF>"};
}

}  // namespace pdf
