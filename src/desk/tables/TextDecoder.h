#pragma once

#include <memory>
#include <string>
#include <string_view>

struct UConverter;

namespace desk {

/// Converts one encoding to UTF-8. Must be used by one thread.
class TextDecoder {
public:
    /// Returns null for an encoding that ICU does not know.
    static std::shared_ptr<const TextDecoder> Make(const std::string& encoding);

    /// Appends the text. Returns false if some bytes are invalid; they become U+FFFD. An incomplete
    /// last character is dropped and is not an error.
    bool Decode(std::string_view bytes, std::string& text) const;
    /// The same for a text padded with zeros or blanks.
    bool DecodePadded(std::string_view bytes, std::string& text) const;
    /// Returns the public name of the encoding.
    const std::string& Name() const { return name_; }

private:
    TextDecoder(std::shared_ptr<UConverter> converter, const std::string& encoding);
    bool Convert(std::string_view bytes, std::string& text) const;

    std::shared_ptr<UConverter> converter_;
    std::string name_;
    bool isAsciiBased_ = false;  ///< Bytes below 0x80 at the start of a character are ASCII.
    bool isUtf8_ = false;
};

bool IsAscii(std::string_view bytes);
/// Returns the bytes with ? for all but printable ASCII.
std::string PrintableAscii(std::string bytes);

}  // namespace desk
