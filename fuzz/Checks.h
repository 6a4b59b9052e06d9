#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "host/Failure.h"

namespace fuzz {

/// Ends the process with a message, so that the fuzzer keeps the input.
[[noreturn]] void Find(const std::string& what);

inline void Require(bool holds, const char* what) {
    if (!holds) Find(what);
}

/// Requires valid UTF-8, as in messages and documents.
void RequireText(std::string_view text, const char* what);

/// Requires a failure with a text.
void RequireSentence(const host::Failure& failure);

/// Runs an action that may throw only host::Failure; another exception ends the process. Returns
/// false if it failed.
template <class Action>
bool Attempt(Action&& action) {
    try {
        action();
        return true;
    } catch (const host::Failure& failure) {
        RequireSentence(failure);
        return false;
    }
}

}  // namespace fuzz
