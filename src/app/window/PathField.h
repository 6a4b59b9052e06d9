#pragma once

#include <QWidget>
#include <functional>

class QLineEdit;

namespace app {

/// A line edit for a path, with a button that opens a chooser.
class PathField : public QWidget {
    Q_OBJECT

public:
    /// Takes the current path; returns the chosen one, or an empty text.
    using Chooser = std::function<QString(const QString& present)>;

    PathField(const QString& name, Chooser chooser, QWidget* parent);

    QString Path() const;
    void SetPath(const QString& path);

Q_SIGNALS:
    void Changed();

private:
    QLineEdit* line_;
};

}  // namespace app
