#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace gazetteer {

/// Every occurrence of a piece replaced, case-exact.
std::string ReplaceAll(std::string text, std::string_view piece, std::string_view replacement);

/// The pieces between separators; a text without one is one piece.
std::vector<std::string> Split(const std::string& text, char separator);

/// The text without blanks at either end.
std::string WithoutOuterBlanks(const std::string& text);

/// Whether two texts are equal, ASCII letters in any case.
bool EqualsInAnyCase(std::string_view text1, std::string_view text2);

/// Whether the text holds the piece, ASCII letters in any case.
bool ContainsInAnyCase(std::string_view text, std::string_view piece);

}  // namespace gazetteer
