#include "desk/json/JsonWriter.h"

#include <array>
#include <charconv>
#include <cmath>
#include <simdjson.h>
#include <utility>

#include "host/Failure.h"

namespace desk {

namespace {

/// Longer than the shortest form of any double or 64-bit integer.
constexpr std::size_t kNumberRoom = 40;

/// Approximate size of the blocks passed to the sink, in bytes.
constexpr std::size_t kBlock = 1 << 16;

/// Returns the first 40 bytes of a text with unprintable ones replaced, for messages.
std::string Shown(std::string_view text) {
    std::string shown;
    for (const char c : text.substr(0, 40)) shown += c >= ' ' && c <= '~' ? c : '?';
    return shown;
}

bool NeedsEscape(char c) {
    return (c >= 0 && c < ' ') || c == '"' || c == '\\';
}

/// Whether one of U+0080 to U+009F stands there, by which terminals can be controlled.
bool IsC1(std::string_view text, std::size_t at) {
    return text[at] == '\xC2' && at + 1 < text.size() &&
           static_cast<unsigned char>(text[at + 1]) < 0xA0;
}

}  // namespace

void JsonWriter::Flush() {
    sink_(out_);
    out_.clear();
}

void JsonWriter::Finish() {
    out_ += '\n';
    Flush();
}

void JsonWriter::Separate() {
    if (out_.size() >= kBlock) Flush();
    if (comma_) out_ += ',';
    if (newLine_) BreakLine();
    comma_ = true;
    newLine_ = indentation_ > 0;
}

void JsonWriter::BreakLine() {
    out_ += '\n';
    out_.append(static_cast<std::size_t>(indentation_) * static_cast<std::size_t>(depth_), ' ');
}

void JsonWriter::Begin(char bracket) {
    Separate();
    out_ += bracket;
    ++depth_;
    comma_ = false;
}

void JsonWriter::End(char bracket) {
    --depth_;
    const bool empty = !comma_;
    if (newLine_ && !empty) BreakLine();
    out_ += bracket;
    comma_ = true;
}

void JsonWriter::Key(std::string_view key) {
    Separate();
    Quote(key);
    out_ += indentation_ > 0 ? ": " : ":";
    comma_ = false;
    newLine_ = false;
}

void JsonWriter::Text(std::string_view text) {
    Separate();
    Quote(text);
}

void JsonWriter::Flag(bool flag) {
    Separate();
    out_ += flag ? "true" : "false";
}

void JsonWriter::Whole(std::int64_t number) {
    Separate();
    out_ += std::to_string(number);
}

void JsonWriter::Number(double number) {
    if (std::isnan(number)) return Text("nan");
    if (std::isinf(number)) return Text(number > 0 ? "inf" : "-inf");
    Separate();
    std::array<char, kNumberRoom> digits{};
    char* const first = digits.data();
    char* const last = first + digits.size();
    const char* const end = indentation_ > 0 ? simdjson::internal::to_chars(first, last, number)
                                             : std::to_chars(first, last, number).ptr;
    const std::string_view text(first, static_cast<std::size_t>(end - first));
    out_ += text;
    if (text.find_first_of(".e") == std::string_view::npos) out_ += ".0";
}

void JsonWriter::Null() {
    Separate();
    out_ += "null";
}

std::string JsonWriter::Mended(std::string_view text) const {
    throw host::Failure(host::kFailureTypeMismatch, "JsonWriter",
                        "the text \"" + Shown(text) + "\" is not valid UTF-8");
}

void JsonWriter::Quote(std::string_view text) {
    if (!simdjson::validate_utf8(text)) return Quote(Mended(text));
    out_ += '"';
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        // Stored documents have them as they are.
        const bool c1 = indentation_ > 0 && IsC1(text, i);
        if (!c1 && !NeedsEscape(text[i])) continue;
        out_ += text.substr(start, i - start);
        if (c1) ++i;
        Escape(text[i]);
        start = i + 1;
    }
    out_ += text.substr(start);
    out_ += '"';
}

void JsonWriter::Escape(char character) {
    constexpr std::string_view kHexDigits = "0123456789abcdef";
    constexpr std::string_view kCharacters = "\"\\\n\r\t\b\f";
    constexpr std::string_view kLetters = "\"\\nrtbf";
    constexpr std::size_t kOfDocuments = 5;  // Stored documents write \b and \f as \u00XX.
    const auto place = kCharacters.find(character);
    out_ += '\\';
    if (place < (indentation_ > 0 ? kLetters.size() : kOfDocuments)) {
        out_ += kLetters[place];
        return;
    }
    out_ += "u00";
    out_ += kHexDigits[static_cast<unsigned char>(character) >> 4U];
    out_ += kHexDigits[static_cast<unsigned char>(character) & 0xFU];
}

}  // namespace desk
