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

double TextFit::Width(host::IHostTextSymbol& symbol, const std::string& text) {
    display_->BeginDrawing(display_->Device(), kNoCache);
    const auto extent = symbol.MeasureText(display_->Device(), display_->Transformation(), text);
    display_->EndDrawing();
    return extent.xSize / kPointsPerInch;
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
        if (leaders.any && leaders.atEnd) result += LeaderAfter(measure, result, width);
    } else if (leaders.any && textWidth < width) {
        result = FillLeaders(measure, filledTemplate, textWidth, width);
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
    if (last != std::string::npos && plain[last] == '\n') text.resize(text.rfind("\r\n"));
    return text;
}

}  // namespace gazetteer
