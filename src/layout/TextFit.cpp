#include "layout/TextFit.h"

#include "layout/DotLeader.h"
#include "layout/LineBreaker.h"
#include "model/Results.h"
#include "support/ErrorHandling.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

constexpr double kPointsPerInch = 72;
constexpr int kNoCache = -1;

// What a leader token in the text asks for.
struct Leaders {
    bool any = false;
    bool atEnd = false;  // Nothing but tokens follows the first one.
};

Leaders TakeLeaders(std::string& text) {
    Leaders leaders;
    const auto first = text.find(kDotsToken);
    if (first == std::string::npos) return leaders;
    leaders.any = true;
    text = ReplaceAll(std::move(text), kDotsToken, "");
    leaders.atEnd = first == text.size();
    return leaders;
}

// Without a width of its own no number of dots would ever fill a column.
std::string WithDots(const std::optional<std::string>& filled, host::IHostTextSymbol& symbol) {
    if (!filled)
        Raise("CVNGazetteerManager.SplitText", "The dot has no width in the font \"" +
                                                   symbol.Font()->Name() +
                                                   "\", so that dots cannot fill the column.");
    return *filled;
}

}  // namespace

TextFit::TextFit(host::IHost& host, host::Ref<host::IHostDisplay> display)
    : host_(host), display_(std::move(display)), scratch_(host.NewTextElement()) {
    parser_ = host::As<host::IHostTextParser>(scratch_->Symbol());
}

void TextFit::GetTextSize(host::IHostTextElement& element, double& width, double& height) try {
    display_->BeginDrawing(display_->Device(), kNoCache);
    const auto extent = element.Symbol()->MeasureText(display_->Device(),
                                                      display_->Transformation(), element.Text());
    display_->EndDrawing();
    width = extent.xSize / kPointsPerInch;
    height = extent.ySize / kPointsPerInch;
} catch (...) {
    PassOn("GetTextSize", kManagerLabel);
}

double TextFit::Width(host::IHostTextSymbol& symbol, const std::string& text) try {
    display_->BeginDrawing(display_->Device(), kNoCache);
    const auto extent = symbol.MeasureText(display_->Device(), display_->Transformation(), text);
    display_->EndDrawing();
    return extent.xSize / kPointsPerInch;
} catch (...) {
    PassOn("GetTextSize", kManagerLabel);
}

std::string TextFit::SplitText(std::string& text, double width,
                               const host::Ref<host::IHostTextSymbol>& symbol) try {
    text = ReplaceAll(std::move(text), kNewLineToken, "\r\n");
    const std::string filledTemplate = text;
    const Leaders leaders = TakeLeaders(text);
    const auto measure = [&](const std::string& piece) { return Width(*symbol, piece); };

    const double textWidth = measure(parser_->PlainText(text).plain);
    std::string result;
    if (textWidth > width) {
        result = LineBreaker(host_.Locale(), measure, width).Wrap(text, textWidth);
        if (leaders.any && leaders.atEnd)
            result += WithDots(LeaderAfter(measure, result, width), *symbol);
    } else if (leaders.any && textWidth < width) {
        result = WithDots(FillLeaders(measure, filledTemplate, textWidth, width), *symbol);
    } else {
        result = text;
    }
    return WithoutLastLineEnd(std::move(result));
} catch (...) {
    PassOn("SplitText", kManagerLabel);
}

// A blank that overflowed at the very end of the text has left a line end behind.
std::string TextFit::WithoutLastLineEnd(std::string text) {
    const std::string plain = parser_->PlainText(text).plain;
    const auto last = plain.find_last_not_of(' ');
    if (last == std::string::npos || plain[last] != '\n') return text;
    // A text of the user's own may end in a bare LF, which is not this line end.
    const auto lineEnd = text.rfind("\r\n");
    if (lineEnd != std::string::npos) text.resize(lineEnd);
    return text;
}

}  // namespace gazetteer
