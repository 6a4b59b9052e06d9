#pragma once

#include <QStatusBar>

#include "desk/session/Application.h"

class QLabel;
class QMenu;
class QToolButton;

namespace app {

/// A spinner shown during a run. Step turns it, because a timer would not fire while the run blocks
/// the only thread.
class BusySign : public QWidget {
public:
    explicit BusySign(QWidget* parent) : QWidget(parent) {}

    void Take(desk::AnimationStep step);
    void Step();
    bool Shown() const { return shown_; }
    bool Playing() const { return playing_; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool shown_ = false;
    bool playing_ = false;
    int turn_ = 0;
};

/// The status bar: status text and spinner on the left, page and zoom on the right.
class StatusPanes : public QStatusBar {
public:
    StatusPanes(QMenu* zooms, QWidget* parent);

    /// Shows a status text at once although the thread is busy. An empty text restores the result.
    void ShowRunText(const QString& text);
    void ShowAnimation(desk::AnimationStep step);
    /// Sets the text shown when no run is active.
    void ShowResult(const QString& text);
    void ShowPage(const QString& text);
    void ShowZoom(double zoom);  ///< 0: none.
    const BusySign& Sign() const { return *sign_; }

private:
    BusySign* sign_;
    QLabel* text_;
    QLabel* page_;
    QToolButton* zoom_;
    QString result_;
};

}  // namespace app
