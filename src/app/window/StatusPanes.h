#pragma once

#include <QElapsedTimer>
#include <QStatusBar>

#include "desk/session/Application.h"

class QLabel;
class QMenu;
class QToolButton;

namespace app {

/// A sign that turns while something long is going on. The one thread is busy then, so that it
/// turns with each Step, not by a timer.
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

    /// A text of a run, seen at once although the thread is busy; but not more often than an eye
    /// can follow. Only pane 0 is there.
    void ShowRunText(int pane, const QString& text);
    void ShowAnimation(desk::AnimationStep step);
    /// A text that stands whenever no run has something to tell.
    void ShowResult(const QString& text);
    QString Text() const;
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
