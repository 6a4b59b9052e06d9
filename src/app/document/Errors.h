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

/// Something could not be done; the text is one sentence.
struct CommandError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Something could not be done or was refused, and the message has been shown already.
struct AlreadyTold {};

/// Returns a value for use in a sentence: cut after 200 bytes, with an ellipsis.
std::string Shown(const std::string& value);

/// Returns a failure as one sentence: its cause, and the facts that the cause does not name.
std::string FailureSentence(const host::Failure& failure);

/// Returns the exception that is being handled as one sentence.
std::string CurrentSentence();

}  // namespace app
