#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "host/Failure.h"
#include "host/Object.h"

namespace host {

/// Message box styles.
inline constexpr std::int32_t kStopOk = 16;
inline constexpr std::int32_t kInformationOk = 64;
inline constexpr std::int32_t kYesNo = 4;
inline constexpr std::int32_t kWarningOk = 48;

enum class MessageAnswer { Ok, Yes, No };

/// A modal message. One that reports a failure points to it, for hosts that show its facts.
struct MessageBoxRequest {
    std::string title;
    std::string text;
    std::int32_t style = kInformationOk;
    const Failure* failure = nullptr;
};

/// The plain services of the user interface.
struct IHostDialogs : virtual IHostObject {
    virtual MessageAnswer MessageBox(const MessageBoxRequest& request) = 0;
    /// The text typed, or nothing where the user cancelled.
    virtual std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                                const std::string& initial) = 0;
    virtual void Beep() = 0;
};

}  // namespace host
