#pragma once

#include <QFrame>
#include <QString>
#include <string>
#include <vector>

class QAbstractButton;
class QLabel;

namespace app {

/// A bar above the page with warnings about the document. The user can close it.
class NoticeBar : public QFrame {
public:
    explicit NoticeBar(QWidget* parent);

    /// Shows the sentences, and a button for details if there are any. Hides the bar if there are
    /// none; leaves it closed if the user has closed it over the same ones.
    void Show(const std::vector<std::string>& notices, bool details);
    QAbstractButton* Details() const { return details_; }

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void ShowIcon();

    QLabel* icon_;
    QLabel* text_;
    QAbstractButton* details_;
    QString all_;
};

}  // namespace app
