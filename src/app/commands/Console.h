#pragma once

#include <string>

#include "desk/session/Application.h"
#include "host/Dialogs.h"

/// Standard output as text, messages on standard error, and the progress of a run on a terminal.
/// What a table or a document holds cannot control the terminal (see Printable).
namespace app {

/// Writes a line to standard error and removes the progress line.
void Tell(const std::string& line);

void Warn(const std::string& line);

/// Writes a line to standard output.
void Print(const std::string& line);

/// Returns listeners that show the status text on one line of the terminal, with a spinner while
/// the progress animation plays. They do nothing if standard error is not a terminal.
desk::SessionListeners ProgressListeners();

void ClearProgress();

/// Message boxes on standard error. A failure is written as one sentence with its column, record,
/// field and value if known; verbose writes the whole message. Questions are answered with Yes.
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
