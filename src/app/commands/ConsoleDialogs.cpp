#include "app/commands/ConsoleDialogs.h"

#include <cstdio>

#include "app/commands/Progress.h"
#include "app/document/Errors.h"

namespace app {
namespace {

std::string WithoutCarriageReturns(std::string text) {
    std::erase(text, '\r');
    while (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
}

}  // namespace

void Tell(const std::string& line) {
    ClearProgress();
    std::fputs(("gazetteer: " + line + '\n').c_str(), stderr);
}

void Warn(const std::string& line) {
    Tell("warning: " + line);
}

host::MessageAnswer ConsoleDialogs::Show(const host::MessageBoxRequest& request) {
    if (request.style == host::kYesNo) return host::MessageAnswer::Yes;
    if (request.failure && !verbose_)
        Tell(FailureSentence(*request.failure));
    else
        Tell(request.title + ": " + WithoutCarriageReturns(request.text));
    return host::MessageAnswer::Ok;
}

std::optional<std::string> ConsoleDialogs::InputBox(const std::string&, const std::string&,
                                                    const std::string&) {
    return std::nullopt;
}

}  // namespace app
