#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

struct UConverter;

namespace desk {

/// Turns text of one encoding into UTF-8. Not safe for use by two threads.
class TextDecoder {
public:
    /// Null for an encoding that ICU does not know.
    static std::shared_ptr<const TextDecoder> Make(const std::string& encoding);
    ~TextDecoder();

    /// Appends the text. False where some bytes are none of the encoding: U+FFFD stands for them.
    /// A last character that the field's end cut off is left out and is no fault.
    bool Decode(std::string_view bytes, std::string& text) const;
    /// Whether bytes below 0x80 are ASCII wherever they begin a character.
    bool IsAsciiBased() const { return asciiBased_; }
    /// The usual public name of the encoding.
    const std::string& Name() const { return name_; }

private:
    TextDecoder(UConverter* converter, const std::string& encoding);
    bool DecodeUtf8(std::string_view bytes, std::string& text) const;
    bool DecodeByIcu(std::string_view bytes, std::string& text) const;
    void FillTable();

    struct Closer {
        void operator()(UConverter* converter) const;
    };
    std::unique_ptr<UConverter, Closer> converter_;
    std::string name_;
    bool asciiBased_ = false;
    bool utf8_ = false;
    bool singleByte_ = false;
    std::array<std::string, 256> table_;  ///< UTF-8 of each byte of a single-byte encoding.
};

/// Whether all bytes are below 0x80.
bool IsAscii(std::string_view bytes);
/// Whether the bytes are UTF-8, the last character perhaps cut off.
bool IsUtf8(std::string_view bytes);
/// The bytes as they can be shown whatever they are, with ? for all but printable ASCII.
std::string PrintableAscii(std::string bytes);

}  // namespace desk
