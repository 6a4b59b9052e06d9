#pragma once

#include <QElapsedTimer>
#include <QStatusBar>

#include "desk/session/Application.h"

class QLabel;
class QMenu;
class QToolButton;

namespace app {

/// A sign that turns during a run. It turns with each Step and not by a timer, since the run keeps
/// the only thread busy.
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

/// The status bar: the text and sign of a run on the left, page and zoom on the right.
class StatusPanes : public QStatusBar {
public:
    StatusPanes(QMenu* zooms, QWidget* parent);

    /// Shows a text of a run at once, although the thread is busy, but only every 60 ms; an empty
    /// text shows the result. There is only pane 0; texts for others are ignored.
    void ShowRunText(int pane, const QString& text);
    void ShowAnimation(desk::AnimationStep step);
    /// Sets the text that is shown while no run goes on.
    void ShowResult(const QString& text);
    void ShowPage(const QString& text);
    void ShowZoom(double zoom);  ///< 0 for none.
    const BusySign& Sign() const { return *sign_; }

private:
    BusySign* sign_;
    QLabel* text_;
    QLabel* page_;
    QToolButton* zoom_;
    QString result_;
    QElapsedTimer sinceShown_;
};

}  // namespace app
