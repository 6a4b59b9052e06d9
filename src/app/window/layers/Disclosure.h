#pragma once

#include <QToolButton>
#include <vector>

namespace app {

/// A button that shows and hides further choices, which are hidden at first. It tells how many of
/// them are set while they are hidden.
class Disclosure : public QToolButton {
    Q_OBJECT

public:
    Disclosure(const QString& name, const QString& text, QWidget* parent);

    /// Adds a widget that is shown and hidden.
    void Add(QWidget* part);
    /// Takes the number of choices that are set. The first one shows them.
    void SetCount(int count);

private:
    void Open(bool open);
    void ShowText();
    void Reveal();

    QString name_;
    std::vector<QWidget*> parts_;
    int count_ = 0;
    bool open_ = false;
};

}  // namespace app
