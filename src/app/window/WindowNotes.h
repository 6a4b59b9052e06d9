#pragma once

#include <utility>

#include "app/document/NotedDialogs.h"
#include "desk/window/WindowDialogs.h"

namespace app {

/// The window's message boxes.
class WindowNotes final : public NotedDialogs {
public:
    explicit WindowNotes(desk::ParentWidget parent) : boxes_(std::move(parent)) {}

    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& initial) override {
        return boxes_.InputBox(prompt, title, initial);
    }
    void Beep() override { boxes_.Beep(); }

protected:
    host::MessageAnswer Show(const host::MessageBoxRequest& request) override {
        return boxes_.MessageBox(request);
    }

private:
    desk::WindowDialogs boxes_;
};

}  // namespace app
