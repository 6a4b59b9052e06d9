#include "app/commands/JsonAnswer.h"

#include <cmath>
#include <cstdio>

#include "desk/tables/TextDecoder.h"

namespace app {
namespace {

void Print(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
}

void Write(JsonAnswer answer, const std::function<void(JsonAnswer&)>& writeMembers) {
    answer.BeginObject();
    writeMembers(answer);
    answer.EndObject();
    answer.Finish();
}

}  // namespace

void JsonAnswer::Member(std::string_view key, const std::vector<std::string>& texts) {
    Key(key);
    BeginArray();
    for (const auto& text : texts) Text(text);
    EndArray();
}

void JsonAnswer::Member(std::string_view key, double number) {
    Key(key);
    if (std::isfinite(number))
        Number(number);
    else
        Null();
}

std::string JsonAnswer::Mended(std::string_view text) const {
    std::string mended;
    // The decoder drops an incomplete character at the very end; the added line end prevents this.
    desk::TextDecoder::Make("UTF-8")->Decode(std::string(text) + '\n', mended);
    mended.pop_back();
    return mended;
}

void StreamAnswer(int indentation, const std::function<void(JsonAnswer&)>& writeMembers) {
    Write(JsonAnswer(Print, indentation), writeMembers);
}

void PrintAnswer(int indentation, const std::function<void(JsonAnswer&)>& writeMembers) {
    std::string text;
    const auto keep = [&](std::string_view piece) { text += piece; };
    Write(JsonAnswer(keep, indentation), writeMembers);
    Print(text);
}

}  // namespace app
