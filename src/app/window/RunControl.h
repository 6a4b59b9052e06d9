#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <functional>

class QAbstractButton;

namespace app {

/// A run was cancelled by the user.
struct RunCancelled {};

/// Lets the user cancel a run, although the run blocks the only thread: during a run, Poll
/// processes events now and then. Of the user's input, only Escape and clicks of the cancel button
/// get through.
class RunControl : public QObject {
    Q_OBJECT

public:
    /// The button is shown during runs that take longer than half a second.
    explicit RunControl(QAbstractButton* button);

    /// Calls `work`. When the user cancels it, calls `cancelled`, and from then on Poll throws, so
    /// that the work fails and ends. Returns false if it was cancelled; what `work` throws is then
    /// dropped, and otherwise passed on. Work inside other work is part of it.
    bool Run(const std::function<void()>& work, const std::function<void()>& cancelled);
    bool Running() const { return running_; }

    /// To be called often by what may be cancelled; costs little. Throws host::Failure if the run
    /// was cancelled. Has no effect outside of a run.
    void Poll();

Q_SIGNALS:
    void RunningChanged(bool running);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void SetRunning(bool running);
    void Cancel();

    QAbstractButton* button_;
    QElapsedTimer sinceStart_;
    QElapsedTimer sincePoll_;
    std::function<void()> onCancel_;
    bool running_ = false;
    bool polling_ = false;
    bool cancelled_ = false;
};

}  // namespace app
