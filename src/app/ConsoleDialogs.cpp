#include "app/ConsoleDialogs.h"

#include <cstdio>
#include <utility>

#include "app/Progress.h"

namespace app {
namespace {

std::string WithoutCarriageReturns(std::string text) {
    std::erase(text, '\r');
    while (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
}

// "record 17", but texts in quotation marks.
std::string FactPhrase(const host::FailureFact& fact) {
    if (fact.name == "record") return fact.name + ' ' + fact.value;
    return fact.name + " \"" + fact.value + '"';
}

}  // namespace

std::string FailureSentence(const host::Failure& failure) {
    std::string facts;
    for (const auto& fact : failure.facts) {
        // The sentence may name the fact already.
        if (failure.cause.find('"' + fact.value + '"') != std::string::npos) continue;
        facts += (facts.empty() ? " (" : ", ") + FactPhrase(fact);
    }
    return failure.cause + (facts.empty() ? "" : facts + ')');
}

void Tell(const std::string& line) {
    ClearProgress();
    std::fputs(("gazetteer: " + line + '\n').c_str(), stderr);
}

void Warn(const std::string& line) {
    Tell("warning: " + line);
}

host::MessageAnswer ConsoleDialogs::MessageBox(const host::MessageBoxRequest& request) {
    if (request.style == host::kYesNo) return host::MessageAnswer::Yes;
    if (request.failure && silent_) return host::MessageAnswer::Ok;
    if (request.failure) failureShown_ = true;
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

bool ConsoleDialogs::TakeFailureShown() {
    return std::exchange(failureShown_, false);
}

}  // namespace app
