#pragma once

#include <string>

#include "host/Dialogs.h"

namespace app {

/// Message boxes on standard error. Of a failure's dialog the plain description is shown with what
/// is known of column, record, field and value; verbose shows the whole dialog. Questions are
/// answered Yes, since a command is its own Yes.
class ConsoleDialogs final : public host::IHostDialogs {
public:
    explicit ConsoleDialogs(bool verbose) : verbose_(verbose) {}

    host::MessageAnswer MessageBox(const host::MessageBoxRequest& request) override;
    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& initial) override;
    void Beep() override {}

    /// A failure has been shown since the last call.
    bool TakeFailureShown();

    /// While it lives, failures are neither shown nor noted: for checks whose reasons are told in
    /// another way.
    class Silent {
    public:
        explicit Silent(ConsoleDialogs& dialogs) : dialogs_(dialogs) { dialogs_.silent_ = true; }
        ~Silent() { dialogs_.silent_ = false; }
        Silent(const Silent&) = delete;
        Silent& operator=(const Silent&) = delete;

    private:
        ConsoleDialogs& dialogs_;
    };
    Silent Silence() { return Silent(*this); }

private:
    bool silent_ = false;
    bool verbose_;
    bool failureShown_ = false;
};

/// A failure in one line: its first text and its facts.
std::string FailureSentence(const host::Failure& failure);

/// Writes a line to standard error, over whatever progress stands there.
void Tell(const std::string& line);

/// A warning to standard error.
void Warn(const std::string& line);

}  // namespace app
