#include "app/document/RunProgress.h"

#include <array>
#include <string_view>
#include <utility>

namespace app {
namespace {

// More frequent texts would cost time and be unreadable.
constexpr std::chrono::milliseconds kInterval(60);

int Percent(std::int64_t step, std::int64_t steps) {
    return static_cast<int>(step * 100 / steps);
}

// The stages in the words of the component, which name cells and graphics, and in those of a user.
std::string StageName(std::string_view text) {
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kStages{{
        {"Generating column text", "Composing record"},
        {"Removing Duplicates", "Combining record"},
        {"Laying out each page", "Numbering pages: listing"},
        {"Finding first and last listing", "Naming page"},
        {"Placing listings on layout", "Laying out the page: listing"},
    }};
    for (const auto& [words, name] : kStages)
        if (text.find(words) != std::string_view::npos) return std::string(name);
    return std::string(text.substr(0, text.find_last_not_of("0123456789: ") + 1));
}

}  // namespace

bool RunProgress::IsDue() {
    const auto now = Clock::now();
    if (now < next_) return false;
    next_ = now + kInterval;
    return true;
}

void RunProgress::SetStep(std::int64_t step, std::int64_t steps) {
    step_ = step;
    steps_ = steps;
}

std::optional<RunProgress::Shown> RunProgress::Take(const std::string& text) {
    const auto step = std::exchange(step_, 0);
    const auto steps = std::exchange(steps_, 0);
    if (text.empty()) return Shown{};
    if (steps == 0) {
        if (!text.ends_with('.') && !IsDue()) return std::nullopt;
        return Shown{text, std::nullopt};
    }
    if (!IsDue()) return std::nullopt;
    const int percent = Percent(step, steps);
    return Shown{StageName(text) + ' ' + std::to_string(step) + " of " + std::to_string(steps) +
                     " (" + std::to_string(percent) + " %)",
                 percent};
}

std::optional<RunProgress::Shown> RunProgress::Sort(std::int64_t step, std::int64_t steps) {
    if (!IsDue()) return std::nullopt;
    const int percent = Percent(step, steps);
    return Shown{"Sorting listings (" + std::to_string(percent) + " %)", percent};
}

}  // namespace app
