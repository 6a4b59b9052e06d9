#pragma once

#include <QWidget>

class QAction;
class QVBoxLayout;

namespace app {

/// What the window shows while no document is open: the ways to get one.
class StartPage : public QWidget {
    Q_OBJECT

public:
    /// A button for each of the actions.
    StartPage(const QList<QAction*>& actions, QWidget* parent);

    void ShowRecent(const QStringList& paths);

Q_SIGNALS:
    void RecentChosen(const QString& path);

private:
    QVBoxLayout* recent_;
};

}  // namespace app
