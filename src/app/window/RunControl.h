#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <functional>
#include <memory>

#include "app/document/RunProgress.h"

class QWidget;

namespace app {

class RunDialog;

/// A run was cancelled by the user.
struct RunCancelled {};

/// Lets the user cancel a run, although the run blocks the only thread: during a run, Poll
/// processes events now and then. Of the user's input, only Escape and what goes to the run dialog
/// get through.
class RunControl : public QObject {
    Q_OBJECT

public:
    /// Runs that take longer than half a second show a dialog over the window, or over the modal
    /// dialog that is open.
    explicit RunControl(QWidget& window);
    ~RunControl() override;

    /// Calls `work`. When the user cancels it, calls `cancelled`, and from then on Poll throws, so
    /// that the work fails and ends. Returns false if it was cancelled; what `work` throws is then
    /// dropped, and otherwise passed on. Work inside other work is part of it.
    bool Run(const std::function<void()>& work, const std::function<void()>& cancelled);
    bool Running() const { return running_; }

    /// To be called often by what may be cancelled; costs little. Throws host::Failure if the run
    /// was cancelled. Has no effect outside of a run.
    void Poll();
    /// Shows how far the run is; an empty text changes nothing.
    void Show(const RunProgress::Shown& shown);

Q_SIGNALS:
    void RunningChanged(bool running);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void SetRunning(bool running);
    void OpenDialog();
    void ProcessEvents();
    void Cancel();

    QWidget& window_;
    std::unique_ptr<RunDialog> dialog_;  ///< Null outside of a run and in its first half second.
    RunProgress::Shown shown_;
    QElapsedTimer sinceStart_;
    QElapsedTimer sincePoll_;
    std::function<void()> onCancel_;
    bool running_ = false;
    bool polling_ = false;
    bool cancelled_ = false;
};

}  // namespace app
