#pragma once

#include <string>

#include "app/document/NotedDialogs.h"

namespace app {

/// Message boxes on standard error. Of a failure's dialog the plain description is shown with what
/// is known of column, record, field and value; verbose shows the whole dialog. Questions are
/// answered Yes, since a command is its own Yes.
class ConsoleDialogs final : public NotedDialogs {
public:
    explicit ConsoleDialogs(bool verbose) : verbose_(verbose) {}

    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& initial) override;
    void Beep() override {}

protected:
    host::MessageAnswer Show(const host::MessageBoxRequest& request) override;

private:
    bool verbose_;
};

/// Writes a line to standard error, over whatever progress stands there.
void Tell(const std::string& line);

/// A warning to standard error.
void Warn(const std::string& line);

}  // namespace app
