#include "app/tables/Labels.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <string_view>
#include <utility>

#include "app/document/Errors.h"
#include "support/Text.h"

namespace app {
namespace {

constexpr std::size_t kMostLabels = 1000;

[[noreturn]] void FailLabels(const std::string& option, const std::string& text) {
    throw UsageError(option + ' ' + Shown(text) +
                     ": labels are given as A..H, 1..10 or with commas, at most 1000.");
}

void CheckDistinct(const std::string& option, const std::string& text, Labels labels) {
    std::ranges::sort(labels);
    if (std::ranges::find(labels, std::string()) != labels.end())
        throw UsageError(option + ' ' + Shown(text) + ": a label is empty.");
    if (const auto twice = std::ranges::adjacent_find(labels); twice != labels.end())
        throw UsageError(option + ' ' + Shown(text) + ": the label \"" + *twice +
                         "\" is there twice.");
}

std::string LabelAt(long number, bool isLetter) {
    return isLetter ? std::string(1, static_cast<char>(number)) : std::to_string(number);
}

}  // namespace

Labels ParseLabels(const std::string& option, const std::string& text, const std::string& leftOut) {
    const auto dots = text.find("..");
    if (dots == std::string::npos) {
        auto labels = gazetteer::Split(text, ',');
        if (labels.size() > kMostLabels) FailLabels(option, text);
        CheckDistinct(option, text, labels);
        return labels;
    }
    const auto end = [&](std::string_view piece) -> std::pair<long, bool> {
        if (piece.size() == 1 && std::isalpha(static_cast<unsigned char>(piece[0])))
            return {piece[0], true};
        long number = -1;
        const auto parsed = std::from_chars(piece.data(), piece.data() + piece.size(), number);
        if (parsed.ptr != piece.data() + piece.size() || number < 0) FailLabels(option, text);
        return {number, false};
    };
    const auto [first, firstIsLetter] = end(std::string_view(text).substr(0, dots));
    const auto [last, lastIsLetter] = end(std::string_view(text).substr(dots + 2));
    if (firstIsLetter != lastIsLetter || last < first ||
        (firstIsLetter && (std::isupper(static_cast<int>(first)) != 0) !=
                              (std::isupper(static_cast<int>(last)) != 0)) ||
        last - first >= static_cast<long>(kMostLabels))
        FailLabels(option, text);
    Labels labels;
    for (long number = first; number <= last; ++number)
        if (!firstIsLetter || leftOut.find(static_cast<char>(number)) == std::string::npos)
            labels.push_back(LabelAt(number, firstIsLetter));
    return labels;
}

std::string DefaultLabels(std::int32_t count, bool areLetters, const std::string& leftOut) {
    if (count < 1) return {};
    const auto letters = areLetters ? ParseLabels({}, "A..Z", leftOut) : Labels();
    if (count > std::ssize(letters)) return "1.." + std::to_string(count);
    return letters.front() + ".." + letters[static_cast<std::size_t>(count) - 1];
}

}  // namespace app
