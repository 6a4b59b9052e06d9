#include "desk/tables/TextDecoder.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <simdjson.h>
#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>
#include <unicode/unistr.h>
#include <utility>

namespace desk {
namespace {

std::string_view WithoutPadding(std::string_view text) {
    text = text.substr(0, text.find('\0'));
    constexpr std::string_view kBlanks = "        ";  // Removes eight blanks at a time; most fields
                                                      // have long padding.
    while (text.ends_with(kBlanks)) text.remove_suffix(kBlanks.size());
    while (text.ends_with(' ')) text.remove_suffix(1);
    return text;
}

/// Drops an incomplete last character; other errors become U+FFFD.
void Replace(const void* context, UConverterToUnicodeArgs* args, const char* bytes,
             std::int32_t length, UConverterCallbackReason reason, UErrorCode* status) {
    if (*status == U_TRUNCATED_CHAR_FOUND)
        *status = U_ZERO_ERROR;
    else
        UCNV_TO_U_CALLBACK_SUBSTITUTE(context, args, bytes, length, reason, status);
}

}  // namespace

bool IsAscii(std::string_view bytes) {
    std::size_t at = 0;
    for (; at + 8 <= bytes.size(); at += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + at, sizeof word);
        if ((word & 0x8080808080808080U) != 0) return false;
    }
    return std::ranges::none_of(
        bytes.substr(at), [](char byte) { return (static_cast<unsigned char>(byte) & 0x80) != 0; });
}

std::string PrintableAscii(std::string bytes) {
    std::ranges::replace_if(
        bytes, [](char letter) { return letter < ' ' || letter > '~'; }, '?');
    return bytes;
}

std::shared_ptr<const TextDecoder> TextDecoder::Make(const std::string& encoding) {
    if (encoding.empty()) return nullptr;  // ICU would use the system's encoding.
    UErrorCode status = U_ZERO_ERROR;
    std::shared_ptr<UConverter> converter(ucnv_open(encoding.c_str(), &status), ucnv_close);
    ucnv_setToUCallBack(converter.get(), Replace, nullptr, nullptr, nullptr, &status);
    if (U_FAILURE(status)) return nullptr;
    return std::shared_ptr<const TextDecoder>(new TextDecoder(std::move(converter), encoding));
}

TextDecoder::TextDecoder(std::shared_ptr<UConverter> converter, const std::string& encoding)
    : converter_(std::move(converter)), isUtf8_(ucnv_getType(converter_.get()) == UCNV_UTF8) {
    UErrorCode status = U_ZERO_ERROR;
    const char* icuName = ucnv_getName(converter_.get(), &status);
    // ICU ignores other bytes in an encoding name.
    name_ = IsAscii(encoding) ? encoding : icuName;
    for (const char* standard : {"IANA", "MIME"}) {
        UErrorCode ignored = U_ZERO_ERROR;
        if (const char* name = ucnv_getStandardName(icuName, standard, &ignored)) name_ = name;
    }
    std::string printable, decoded;
    for (char letter = ' '; letter <= '~'; ++letter) printable += letter;
    isAsciiBased_ = Convert(printable, decoded) && decoded == printable;
}

bool TextDecoder::Decode(std::string_view bytes, std::string& text) const {
    const bool isPlain = isUtf8_ ? simdjson::validate_utf8(bytes) : isAsciiBased_ && IsAscii(bytes);
    if (!isPlain) return Convert(bytes, text);
    text.append(bytes);
    return true;
}

bool TextDecoder::DecodePadded(std::string_view bytes, std::string& text) const {
    if (isAsciiBased_) return Decode(WithoutPadding(bytes), text);
    const bool isClean = Decode(bytes, text);
    text.resize(WithoutPadding(text).size());
    return isClean;
}

bool TextDecoder::Convert(std::string_view bytes, std::string& text) const {
    UErrorCode status = U_ZERO_ERROR;
    ucnv_reset(converter_.get());
    const icu::UnicodeString wide(bytes.data(), static_cast<std::int32_t>(bytes.size()),
                                  converter_.get(), status);
    wide.toUTF8String(text);
    return U_SUCCESS(status) && wide.indexOf(static_cast<UChar>(0xFFFD)) < 0;
}

}  // namespace desk
