#include "layout/TextFit.h"

#include "layout/DotLeader.h"
#include "layout/LineBreaker.h"
#include "model/Results.h"
#include "support/ErrorHandling.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

// What a leader token in the text asks for.
struct Leaders {
    std::size_t count = 0;
    bool atEnd = false;    // Nothing but tokens follows the first one.
    std::string withDots;  // The text as it stood, if there is any.
};

Leaders TakeLeaders(std::string& text) {
    Leaders leaders;
    const auto first = text.find(kDotsToken);
    if (first == std::string::npos) return leaders;
    leaders.withDots = text;
    text = ReplaceAll(std::move(text), kDotsToken, "");
    leaders.atEnd = first == text.size();
    leaders.count = (leaders.withDots.size() - text.size()) / (std::size(kDotsToken) - 1);
    return leaders;
}

// Without a width of its own no number of dots would ever fill a column; nor do hosts tell widths
// of millions of dots.
[[noreturn]] void RaiseUnfilled(TextMeasure& measure) {
    const bool hasWidth = measure.Width(".") > 0;
    Raise("CVNGazetteerManager.SplitText",
          hasWidth ? "The column is too wide to be filled with dots."
                   : "The dot has no width in the font \"" + measure.Symbol().Font()->Name() +
                         "\", so that dots cannot fill the column.");
}

// The text that takes so many leaders, with the most dots in each with which it is no wider than
// the column.
template <class Build>
std::string Filled(TextMeasure& measure, double width, std::size_t leaders, const Build& with) {
    const auto dots = DotsThatFit([&](std::size_t count) { return measure.Width(with(count)); },
                                  measure.DotWidth() * static_cast<double>(leaders), width);
    if (!dots) RaiseUnfilled(measure);
    return with(*dots);
}

// In one string, which takes the dots that are tried and gives them up again.
std::string FilledBehind(TextMeasure& measure, double width, std::string line) {
    const std::size_t end = line.size();
    return Filled(measure, width, 1, [&](std::size_t dots) -> const std::string& {
        line.resize(end + dots, '.');
        return line;
    });
}

// The width of a text. Of a long one that is certainly wider than the column, which many lines
// follow, the width is estimated: hosts take long to set very long lines, and only whether it fits
// and its average character matter.
double WidthOf(const std::string& text, TextMeasure& measure, double column) {
    constexpr std::size_t kLong = 4096;  // Bytes.
    constexpr double kCertainly = 2;  // Ligatures can make a longer text narrower, but not by half.
    if (text.size() > kLong) {
        std::size_t end = kLong;
        while (end > 0 && (text[end] & 0xC0) == 0x80) --end;  // Does not cut inside a character.
        const double beginning = measure.Width(text.substr(0, end));
        if (beginning > kCertainly * column)
            return beginning * static_cast<double>(text.size()) / static_cast<double>(end);
    }
    return measure.Width(text);
}

}  // namespace

TextFit::TextFit(host::IHost& host, host::Ref<host::IHostDisplay> display)
    : host_(host), display_(std::move(display)), scratch_(host.NewTextElement()) {
    parser_ = host::As<host::IHostTextParser>(scratch_->Symbol());
}

TextMeasure& TextFit::MeasureOf(const host::Ref<host::IHostTextSymbol>& symbol) {
    const auto known = measures_.find(symbol.get());
    if (known != measures_.end()) return known->second;
    // A host may hand out another object each time; three symbols for each of 50 columns have room.
    constexpr std::size_t kMostSymbols = 256;
    if (measures_.size() == kMostSymbols) measures_.clear();
    return measures_.try_emplace(symbol.get(), display_, symbol).first->second;
}

std::string TextFit::SplitText(std::string& text, double width,
                               const host::Ref<host::IHostTextSymbol>& symbol) try {
    text = ReplaceAll(std::move(text), kNewLineToken, "\r\n");
    const Leaders leaders = TakeLeaders(text);
    TextMeasure& measure = MeasureOf(symbol);
    const std::string plain = Plain(text);
    const bool hasMarkup = plain != text;
    const double textWidth = WidthOf(plain, measure, width);
    brokeWord_ = false;

    std::string result = text;
    if (textWidth > width) {
        LineBreaker breaker(host_.Locale(), measure, width, hasMarkup);
        result = breaker.Wrap(text, textWidth);
        brokeWord_ = breaker.BrokeWord();
        if (leaders.atEnd && measure.Width(result) <= width) {
            const auto lineStart = hasMarkup ? 0 : result.rfind('\n') + 1;  // 0 without any.
            std::string line = result.substr(lineStart);
            result.resize(lineStart);
            result += FilledBehind(measure, width, std::move(line));
        }
    } else if (leaders.count > 0 && textWidth < width) {
        result = leaders.count == 1 && leaders.atEnd
                     ? FilledBehind(measure, width, std::move(result))
                     : Filled(measure, width, leaders.count, [&](std::size_t dots) {
                           return ReplaceAll(leaders.withDots, kDotsToken, std::string(dots, '.'));
                       });
    }
    return WithoutLastLineEnd(std::move(result));
} catch (...) {
    PassOn("SplitText", kManagerLabel);
}

std::string TextFit::Plain(const std::string& text) const {
    return parser_ ? parser_->PlainText(text).plain : text;
}

// A blank that overflowed at the very end of the text has left a line end behind.
std::string TextFit::WithoutLastLineEnd(std::string text) {
    if (text.find('\n') == std::string::npos) return text;
    const auto lineEnd = text.rfind("\r\n");
    if (lineEnd == std::string::npos) return text;
    const std::string plain = Plain(text);
    const auto last = plain.find_last_not_of(' ');
    if (last == std::string::npos || plain[last] != '\n') return text;
    text.resize(lineEnd);
    return text;
}

}  // namespace gazetteer
