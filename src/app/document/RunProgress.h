#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace app {

/// What a run tells of itself through the host, as one text for the terminal and the window.
class RunProgress {
public:
    struct Shown {
        std::string text;
        std::optional<int> percent;  ///< Nothing: unknown.
    };

    /// The step at hand of the stage whose text follows; see host::IHostStepCounts.
    void SetStep(std::int64_t step, std::int64_t steps);
    /// Returns what to show for a status text: with steps, the stage and "n of m (p %)". A run sets
    /// a text for every cell: returns nothing if the last one is too recent. An empty text, and one
    /// that ends in a full stop and so names a stage, are always returned.
    std::optional<Shown> Take(const std::string& text);
    /// The same for a sort.
    std::optional<Shown> Sort(std::int64_t step, std::int64_t steps);

private:
    using Clock = std::chrono::steady_clock;

    bool IsDue();

    std::int64_t step_ = 0;
    std::int64_t steps_ = 0;
    Clock::time_point next_;
};

}  // namespace app
