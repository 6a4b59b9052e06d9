#include "desk/tables/TextDecoder.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <simdjson.h>
#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>
#include <unicode/unistr.h>

#include "desk/unicode/Utf8.h"

namespace desk {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

}  // namespace

bool IsAscii(std::string_view bytes) {
    std::size_t at = 0;
    for (; at + 8 <= bytes.size(); at += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + at, sizeof word);
        if ((word & 0x8080808080808080U) != 0) return false;
    }
    for (; at < bytes.size(); ++at)
        if (static_cast<unsigned char>(bytes[at]) >= 0x80) return false;
    return true;
}

bool IsUtf8(std::string_view bytes) {
    return simdjson::validate_utf8(bytes.substr(0, WholeCharacters(bytes)));
}

std::string PrintableAscii(std::string bytes) {
    std::ranges::replace_if(
        bytes, [](char letter) { return letter < ' ' || letter > '~'; }, '?');
    return bytes;
}

void TextDecoder::Closer::operator()(UConverter* converter) const {
    ucnv_close(converter);
}

std::shared_ptr<const TextDecoder> TextDecoder::Make(const std::string& encoding) {
    if (encoding.empty()) return nullptr;  // ICU would take the system's own.
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(encoding.c_str(), &status);
    if (U_FAILURE(status)) return nullptr;
    return std::shared_ptr<const TextDecoder>(new TextDecoder(converter, encoding));
}

TextDecoder::TextDecoder(UConverter* converter, const std::string& encoding)
    : converter_(converter) {
    UErrorCode status = U_ZERO_ERROR;
    const char* icuName = ucnv_getName(converter, &status);
    // ICU finds an encoding under a name with any bytes between its letters.
    name_ = IsAscii(encoding) ? encoding : icuName;
    for (const char* standard : {"IANA", "MIME"}) {
        UErrorCode ignored = U_ZERO_ERROR;
        if (const char* name = ucnv_getStandardName(icuName, standard, &ignored)) name_ = name;
    }
    utf8_ = ucnv_getType(converter) == UCNV_UTF8;
    singleByte_ =
        !utf8_ && ucnv_getMaxCharSize(converter) == 1 && ucnv_getMinCharSize(converter) == 1;

    std::string printable, decoded;
    for (char letter = ' '; letter <= '~'; ++letter) printable += letter;
    asciiBased_ = DecodeByIcu(printable, decoded) && decoded == printable;
    if (singleByte_) FillTable();
}

TextDecoder::~TextDecoder() = default;

void TextDecoder::FillTable() {
    for (std::size_t byte = 0; byte < table_.size(); ++byte) {
        const char letter = static_cast<char>(byte);
        // Some old code pages turn control characters about; here they stay what they are.
        if (asciiBased_ && byte < 0x80)
            table_[byte] = letter;
        else
            DecodeByIcu({&letter, 1}, table_[byte]);
    }
}

bool TextDecoder::Decode(std::string_view bytes, std::string& text) const {
    if (asciiBased_ && IsAscii(bytes)) {
        text.append(bytes);
        return true;
    }
    if (utf8_) return DecodeUtf8(bytes, text);
    if (!singleByte_) return DecodeByIcu(bytes, text);
    bool clean = true;
    for (const char letter : bytes) {
        const std::string& decoded = table_[static_cast<unsigned char>(letter)];
        clean = clean && decoded != kReplacement;
        text += decoded;
    }
    return clean;
}

bool TextDecoder::DecodeUtf8(std::string_view bytes, std::string& text) const {
    bytes = bytes.substr(0, WholeCharacters(bytes));
    if (simdjson::validate_utf8(bytes)) {
        text.append(bytes);
        return true;
    }
    icu::UnicodeString::fromUTF8({bytes.data(), static_cast<std::int32_t>(bytes.size())})
        .toUTF8String(text);
    return false;
}

bool TextDecoder::DecodeByIcu(std::string_view bytes, std::string& text) const {
    UErrorCode status = U_ZERO_ERROR;
    ucnv_reset(converter_.get());
    const icu::UnicodeString wide(bytes.data(), static_cast<std::int32_t>(bytes.size()),
                                  converter_.get(), status);
    wide.toUTF8String(text);
    return U_SUCCESS(status) && wide.indexOf(static_cast<UChar>(0xFFFD)) < 0;
}

}  // namespace desk
