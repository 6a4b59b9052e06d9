#pragma once

#include <utility>

#include "host/Dialogs.h"

namespace app {

/// Forwards to other dialogs and records whether a failure was shown.
class RecordingDialogs final : public host::IHostDialogs {
public:
    explicit RecordingDialogs(host::Ref<host::IHostDialogs> dialogs)
        : dialogs_(std::move(dialogs)) {}

    host::MessageAnswer MessageBox(const host::MessageBoxRequest& request) override {
        if (request.failure && silent_) {
            silent_->failed_ = true;
            return host::MessageAnswer::Ok;
        }
        if (request.failure) failureShown_ = true;
        return dialogs_->MessageBox(request);
    }
    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& initial) override {
        return dialogs_->InputBox(prompt, title, initial);
    }
    void Beep() override { dialogs_->Beep(); }

    /// Returns whether a failure was shown since the last call.
    bool TakeFailureShown() { return std::exchange(failureShown_, false); }

    /// While it exists, failures are neither shown nor recorded: for checks that return reasons.
    class Silent {
    public:
        explicit Silent(RecordingDialogs& dialogs) : dialogs_(dialogs) { dialogs_.silent_ = this; }
        ~Silent() { dialogs_.silent_ = nullptr; }
        Silent(const Silent&) = delete;
        Silent& operator=(const Silent&) = delete;

        bool Failed() const { return failed_; }

    private:
        friend RecordingDialogs;
        RecordingDialogs& dialogs_;
        bool failed_ = false;
    };

private:
    host::Ref<host::IHostDialogs> dialogs_;
    Silent* silent_ = nullptr;
    bool failureShown_ = false;
};

}  // namespace app
