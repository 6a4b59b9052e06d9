#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "host/Failure.h"

namespace fuzz {

/// Ends the process with a word on what was found, so that the input is kept.
[[noreturn]] void Find(const std::string& what);

inline void Require(bool holds, const char* what) {
    if (!holds) Find(what);
}

/// What is shown to the user, or stands in a document, must be UTF-8.
void RequireText(std::string_view text, const char* what);

/// A failure must say something that can be shown.
void RequireSentence(const host::Failure& failure);

/// Does something that may fail, but in no other way than by a host::Failure: any other exception
/// ends the process. False where it failed.
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
