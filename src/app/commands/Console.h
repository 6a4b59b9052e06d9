#pragma once

#include <string>

#include "desk/session/Application.h"
#include "host/Dialogs.h"

/// Standard error: messages, and the progress of a run where it is a terminal.
namespace app {

/// Writes a line to standard error, in place of the line of progress.
void Tell(const std::string& line);

/// Writes a warning to standard error.
void Warn(const std::string& line);

/// Listeners that show the text of the status bar on one line of the terminal, with a turning sign
/// while the progress animation plays. They do nothing where standard error is no terminal.
desk::SessionListeners ProgressListeners();

/// Clears the line of progress.
void ClearProgress();

/// Message boxes on standard error. A failure is shown as one sentence with what is known of its
/// column, record, field and value; verbose shows the whole dialog. Questions are answered with
/// Yes.
class ConsoleDialogs final : public host::IHostDialogs {
public:
    explicit ConsoleDialogs(bool verbose) : verbose_(verbose) {}

    host::MessageAnswer MessageBox(const host::MessageBoxRequest& request) override;
    std::optional<std::string> InputBox(const std::string&, const std::string&,
                                        const std::string&) override {
        return std::nullopt;
    }
    void Beep() override {}

private:
    bool verbose_;
};

}  // namespace app
