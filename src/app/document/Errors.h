#pragma once

#include <stdexcept>
#include <string>

#include "host/Failure.h"

namespace app {

/// Exit statuses of the program.
inline constexpr int kDone = 0;
inline constexpr int kCouldNot = 1;
inline constexpr int kWrongUsage = 2;

/// Wrong usage: an unknown key, a value of the wrong form, a column that does not exist.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Something could not be done; the text is one plain sentence.
struct CommandError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Something could not be done or was refused, and the user has been told already.
struct AlreadyTold {
    int exitStatus = kCouldNot;
};

/// A value as a sentence shows it: of a very long one the beginning.
std::string Shown(const std::string& value);

/// A failure in one line: its first text and its facts.
std::string FailureSentence(const host::Failure& failure);

/// The exception being handled in one line.
std::string CurrentSentence();

}  // namespace app
