#pragma once

#include <QString>
#include <functional>

#include "app/window/MainWindow.h"

namespace pictures {

/// A picture, or one for each tab of what it shows.
struct Picture {
    const char* name;  ///< Of the file.
    /// Brings the subject on show: a dialog that blocks, a window of its own, or else the window
    /// itself is the subject.
    std::function<void(app::MainWindow&)> open;
    /// A button inside that dialog which opens the subject, if not null.
    const char* button = nullptr;
    /// A text for the box of the dialog that has the name of `button`, if not null.
    const char* text = nullptr;
};

/// Takes pictures into a folder, and closes what was opened for them.
class Taker {
public:
    explicit Taker(QString folder) : folder_(std::move(folder)) {}

    void Take(const Picture& picture, app::MainWindow& window);
    /// False after a dialog or window that is larger than its screen.
    bool AllFitted() const { return allFitted_; }

private:
    void TakeDialog(const Picture& picture, QWidget& dialog);
    void TakeTabs(QWidget& subject, const QWidget& part, const QString& name);
    void Save(QWidget& subject, const QString& name);

    QString folder_;
    bool allFitted_ = true;
};

}  // namespace pictures
