#include "desk/files/TemporaryName.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <climits>
#include <csignal>
#include <unistd.h>

namespace desk {
namespace {

/// A name that a signal handler can read.
struct Slot {
    std::atomic<bool> taken = false;
    std::atomic<bool> named = false;  ///< The path is complete.
    std::array<char, PATH_MAX> path{};
};

/// More files than these are not removed by a signal.
constinit std::array<Slot, 64> slots{};

extern "C" void RemoveFilesAndEnd(int number) {
    for (const Slot& slot : slots)
        if (slot.named) ::unlink(slot.path.data());
    ::signal(number, SIG_DFL);
    ::raise(number);
}

/// Leaves signals alone that the program ignores or handles itself.
void HandleSignals() {
    for (const int number : {SIGHUP, SIGINT, SIGTERM}) {
        struct sigaction action {};
        ::sigaction(number, nullptr, &action);
        if (action.sa_handler == SIG_DFL) ::signal(number, RemoveFilesAndEnd);
    }
}

}  // namespace

void TemporaryName::Take(const std::filesystem::path& path) {
    GiveUp();
    path_ = path;
    HandleSignals();
    if (path_.native().size() >= PATH_MAX) return;
    for (Slot& slot : slots) {
        if (slot.taken.exchange(true)) continue;
        std::ranges::copy(path_.native(), slot.path.begin());
        slot.path[path_.native().size()] = 0;
        slot.named = true;
        slot_ = static_cast<std::size_t>(&slot - slots.data());
        return;
    }
}

void TemporaryName::GiveUp() {
    path_.clear();
    if (!slot_) return;
    slots[*slot_].named = false;
    slots[*slot_].taken = false;
    slot_.reset();
}

void TemporaryName::Remove() {
    if (!path_.empty()) ::unlink(path_.c_str());
    GiveUp();
}

}  // namespace desk
