#include "app/commands/Progress.h"

#include <chrono>
#include <cstdio>
#include <unistd.h>

namespace app {
namespace {

using Clock = std::chrono::steady_clock;

// Often enough to look alive; a run shows a text for every cell.
constexpr auto kInterval = std::chrono::milliseconds(80);

struct Line {
    bool shown = false;
    bool playing = false;
    std::size_t turn = 0;
    Clock::time_point next;
};

Line& TheLine() {
    static Line line;
    return line;
}

void Show(const std::string& text) {
    Line& line = TheLine();
    static constexpr char kSigns[] = "|/-\\";
    const std::string sign =
        line.playing ? std::string(" ") + kSigns[line.turn++ % (sizeof kSigns - 1)] : "";
    std::fputs(("\r" + text + sign + "\x1b[K").c_str(), stderr);
    std::fflush(stderr);
    line.shown = true;
}

}  // namespace

desk::SessionListeners ProgressListeners() {
    desk::SessionListeners listeners;
    if (::isatty(STDERR_FILENO) == 0) return listeners;
    listeners.statusText = [](std::int32_t, const std::string& text) {
        Line& line = TheLine();
        if (text.empty()) return ClearProgress();
        // The text of a stage without numbers stands for a while, so it is always shown.
        const auto now = Clock::now();
        if (now < line.next && text.back() != '.') return;
        line.next = now + kInterval;
        Show(text);
    };
    listeners.animation = [](desk::AnimationStep step) {
        if (step == desk::AnimationStep::Play) TheLine().playing = true;
        if (step == desk::AnimationStep::Stop) TheLine().playing = false;
    };
    return listeners;
}

void ClearProgress() {
    Line& line = TheLine();
    if (!line.shown) return;
    std::fputs("\r\x1b[K", stderr);
    std::fflush(stderr);
    line.shown = false;
}

}  // namespace app
