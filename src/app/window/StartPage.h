#pragma once

#include <QWidget>

class QAction;
class QVBoxLayout;

namespace app {

/// The page that the window shows while no document is open, with the ways to open or make one.
class StartPage : public QWidget {
    Q_OBJECT

public:
    /// Has a button for each of the actions.
    StartPage(const QList<QAction*>& actions, QWidget* parent);

    void ShowRecent(const QStringList& paths);

Q_SIGNALS:
    void RecentChosen(const QString& path);

private:
    QVBoxLayout* recent_;
};

}  // namespace app
