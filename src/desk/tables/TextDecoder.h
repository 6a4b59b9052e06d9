#pragma once

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

    /// Appends the text. False where some bytes are none of the encoding: U+FFFD stands for them.
    /// A last character that the field's end cut off is left out and is no fault.
    bool Decode(std::string_view bytes, std::string& text) const;
    /// The same for a text that zeros or blanks follow.
    bool DecodePadded(std::string_view bytes, std::string& text) const;
    /// The usual public name of the encoding.
    const std::string& Name() const { return name_; }

private:
    TextDecoder(std::shared_ptr<UConverter> converter, const std::string& encoding);
    bool Convert(std::string_view bytes, std::string& text) const;

    std::shared_ptr<UConverter> converter_;
    std::string name_;
    bool isAsciiBased_ = false;  ///< Bytes below 0x80 are ASCII wherever they begin a character.
    bool isUtf8_ = false;
};

/// Whether all bytes are below 0x80.
bool IsAscii(std::string_view bytes);
/// The bytes as they can be shown whatever they are, with ? for all but printable ASCII.
std::string PrintableAscii(std::string bytes);

}  // namespace desk
