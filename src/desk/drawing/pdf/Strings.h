#pragma once

#include <string>
#include <string_view>

namespace desk::pdf {

/// Appends UTF-8 text as the hexadecimal digits of UTF-16. What is not UTF-8 becomes U+FFFD.
void AppendUtf16(std::string& out, std::string_view text);

/// Appends a string that people read: a title, or the text of a part of a page.
void AppendTextString(std::string& out, std::string_view text);

/// Appends what comes between ( and ).
void AppendEscaped(std::string& out, std::string_view bytes);

}  // namespace desk::pdf
