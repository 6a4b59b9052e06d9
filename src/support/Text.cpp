#include "support/Text.h"

#include <algorithm>

namespace gazetteer {
namespace {

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

}  // namespace

std::string ReplaceAll(std::string text, std::string_view piece, std::string_view replacement) {
    auto at = text.find(piece);
    if (at == std::string::npos) return text;
    std::string replaced;
    std::size_t begin = 0;
    for (; at != std::string::npos; at = text.find(piece, begin)) {
        replaced.append(text, begin, at - begin).append(replacement);
        begin = at + piece.size();
    }
    return replaced.append(text, begin);
}

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> pieces;
    std::size_t begin = 0;
    for (auto end = text.find(separator); end != std::string::npos;
         end = text.find(separator, begin)) {
        pieces.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    pieces.push_back(text.substr(begin));
    return pieces;
}

bool EqualsInAnyCase(std::string_view text1, std::string_view text2) {
    return std::ranges::equal(text1, text2, {}, Lower, Lower);
}

bool ContainsInAnyCase(std::string_view text, std::string_view piece) {
    return !std::ranges::search(text, piece, {}, Lower, Lower).empty();
}

std::string WithoutOuterBlanks(const std::string& text) {
    const auto begin = text.find_first_not_of(' ');
    if (begin == std::string::npos) return {};
    return text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

}  // namespace gazetteer
