#pragma once

#include <string>
#include <utility>

#include "app/document/Errors.h"
#include "host/Dialogs.h"

namespace app {

/// Forwards to other dialogs and records whether a failure was shown.
class RecordingDialogs final : public host::IHostDialogs {
public:
    explicit RecordingDialogs(host::Ref<host::IHostDialogs> dialogs)
        : dialogs_(std::move(dialogs)) {}

    host::MessageAnswer MessageBox(const host::MessageBoxRequest& request) override {
        if (request.failure && silences_ > 0) {
            ++unshown_;
            sentence_ = FailureSentence(*request.failure);
            return host::MessageAnswer::Ok;
        }
        if (request.failure) failureShown_ = true;
        return dialogs_->MessageBox(request);
    }
    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& initial) override {
        return dialogs_->InputBox(prompt, title, initial);
    }
    void Beep() override {
        if (silences_ == 0) dialogs_->Beep();
    }

    /// Returns whether a failure was shown since the last call.
    bool TakeFailureShown() { return std::exchange(failureShown_, false); }

    /// While one exists, failures are neither shown nor recorded: for checks that return reasons,
    /// and after the user has cancelled a run. Several may end in any order.
    class Silent {
    public:
        explicit Silent(RecordingDialogs& dialogs) : dialogs_(dialogs), before_(dialogs.unshown_) {
            ++dialogs_.silences_;
        }
        ~Silent() { --dialogs_.silences_; }
        Silent(const Silent&) = delete;
        Silent& operator=(const Silent&) = delete;

        bool Failed() const { return dialogs_.unshown_ > before_; }
        /// The last failure, where there is one.
        const std::string& Sentence() const { return dialogs_.sentence_; }

    private:
        RecordingDialogs& dialogs_;
        int before_;
    };

private:
    host::Ref<host::IHostDialogs> dialogs_;
    int silences_ = 0;
    int unshown_ = 0;  ///< Failures not shown so far.
    bool failureShown_ = false;
    std::string sentence_;  ///< Of the last failure not shown.
};

}  // namespace app
