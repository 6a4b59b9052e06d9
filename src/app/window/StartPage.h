#pragma once

#include <QWidget>

class QAction;
class QVBoxLayout;

namespace app {

/// Shown while no document is open: buttons and recent documents.
class StartPage : public QWidget {
    Q_OBJECT

public:
    StartPage(const QList<QAction*>& actions, QWidget* parent);

    void ShowRecent(const QStringList& paths);

Q_SIGNALS:
    void RecentChosen(const QString& path);

private:
    QVBoxLayout* recent_;
};

}  // namespace app
