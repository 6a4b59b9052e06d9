#include "app/document/Headings.h"

#include <algorithm>

#include "app/document/References.h"
#include "host/Object.h"
#include "model/Typesetting.h"
#include "support/Text.h"

namespace app {
namespace {

// Returns what is the same wherever the lines of a text end.
std::string WithoutLineEnds(const std::string& text) {
    std::string letters = WithoutBlanks(text);
    std::erase(letters, '-');
    return letters;
}

// Appends lines with a blank between them, but none after a hyphen.
void AddLines(std::string& text, const std::string& lines) {
    for (std::size_t start = 0; start < lines.size();) {
        const std::size_t end = std::min(lines.find_first_of("\r\n", start), lines.size());
        const std::string line = gazetteer::WithoutOuterBlanks(lines.substr(start, end - start));
        if (!text.empty() && !line.empty() && !text.ends_with('-')) text += ' ';
        text += line;
        start = end + 1;
    }
}

}  // namespace

std::string HeadingText(const host::IHostGroupElement& row) {
    std::string text;
    for (std::int32_t i = 0; i < row.Count(); ++i) {
        const auto member = row.Item(i);
        if (const auto element = host::As<host::IHostTextElement>(member))
            AddLines(text, element->Text());
        else if (const auto cell = host::As<host::IHostGroupElement>(member); cell && text.empty())
            text = HeadingText(*cell);
    }
    return text;
}

bool HeadingSequence::GoesOn(const std::string& heading) {
    const std::string text = WithoutLineEnds(heading);
    if (!continued_.empty() && last_ && (text == goesOn_ || text == *last_)) return true;
    last_ = text;
    goesOn_ =
        WithoutLineEnds(gazetteer::ReplaceAll(continued_, gazetteer::kContinuedLetter, heading));
    return false;
}

}  // namespace app
