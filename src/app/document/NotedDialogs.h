#pragma once

#include "host/Dialogs.h"

namespace app {

/// Message boxes that keep note of the failures among them.
class NotedDialogs : public host::IHostDialogs {
public:
    host::MessageAnswer MessageBox(const host::MessageBoxRequest& request) final;

    /// A failure has been shown since the last call.
    bool TakeFailureShown();

    /// While it lives, failures are neither shown nor noted: for checks whose reasons are told in
    /// another way.
    class Silent {
    public:
        explicit Silent(NotedDialogs& dialogs) : dialogs_(dialogs) { dialogs_.silent_ = true; }
        ~Silent() { dialogs_.silent_ = false; }
        Silent(const Silent&) = delete;
        Silent& operator=(const Silent&) = delete;

    private:
        NotedDialogs& dialogs_;
    };
    Silent Silence() { return Silent(*this); }

protected:
    virtual host::MessageAnswer Show(const host::MessageBoxRequest& request) = 0;

private:
    bool silent_ = false;
    bool failureShown_ = false;
};

}  // namespace app
