#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

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

/// An operation failed; the text is one sentence.
struct CommandError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// An operation failed or was refused, and the user has already seen the message.
struct AlreadyReported {};

/// Returns a value for use in a message, cut to 200 bytes with an ellipsis.
std::string Shown(const std::string& value);

/// Returns a text with each control character but line feeds and tabs replaced by U+FFFD, for a
/// terminal. Bytes that are not UTF-8 stay.
std::string Printable(std::string_view text);

/// Returns a failure as one sentence: its cause and the facts that the cause does not mention.
std::string FailureSentence(const host::Failure& failure);

/// Returns the exception being handled as one sentence.
std::string CurrentSentence();

}  // namespace app
