#include "app/commands/Console.h"

#include <chrono>
#include <cstdio>
#include <unistd.h>

#include "app/document/Errors.h"

namespace app {
namespace {

using Clock = std::chrono::steady_clock;

// A run sets a text for every cell; more frequent updates would cost time and be unreadable.
constexpr auto kInterval = std::chrono::milliseconds(80);

struct Progress {
    bool shown = false;
    bool playing = false;
    std::size_t turn = 0;
    Clock::time_point next;
} progress;

void ShowProgress(const std::string& text) {
    static constexpr char kSigns[] = "|/-\\";
    const std::string sign =
        progress.playing ? std::string(" ") + kSigns[progress.turn++ % (sizeof kSigns - 1)] : "";
    std::fputs(("\r" + Printable(text) + sign + "\x1b[K").c_str(), stderr);
    std::fflush(stderr);
    progress.shown = true;
}

std::string WithoutCarriageReturns(std::string text) {
    std::erase(text, '\r');
    while (text.ends_with('\n')) text.pop_back();
    return text;
}

}  // namespace

void Tell(const std::string& line) {
    ClearProgress();
    std::fputs(Printable("gazetteer: " + line + '\n').c_str(), stderr);
}

void Print(const std::string& line) {
    std::fputs(Printable(line + '\n').c_str(), stdout);
}

void Warn(const std::string& line) {
    Tell("warning: " + line);
}

desk::SessionListeners ProgressListeners() {
    desk::SessionListeners listeners;
    if (::isatty(STDERR_FILENO) == 0) return listeners;
    listeners.statusText = [](std::int32_t, const std::string& text) {
        if (text.empty()) return ClearProgress();
        // A text that ends in a full stop names a stage and is always shown.
        const auto now = Clock::now();
        if (now < progress.next && text.back() != '.') return;
        progress.next = now + kInterval;
        ShowProgress(text);
    };
    listeners.animation = [](desk::AnimationStep step) {
        if (step == desk::AnimationStep::Play) progress.playing = true;
        if (step == desk::AnimationStep::Stop) progress.playing = false;
    };
    return listeners;
}

void ClearProgress() {
    if (!progress.shown) return;
    std::fputs("\r\x1b[K", stderr);
    std::fflush(stderr);
    progress.shown = false;
}

host::MessageAnswer ConsoleDialogs::MessageBox(const host::MessageBoxRequest& request) {
    if (request.style == host::kYesNo) return host::MessageAnswer::Yes;
    if (request.failure && !verbose_)
        Tell(FailureSentence(*request.failure));
    else
        Tell(request.title + ": " + WithoutCarriageReturns(request.text));
    return host::MessageAnswer::Ok;
}

}  // namespace app
