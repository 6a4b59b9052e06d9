#pragma once

#include <QFrame>
#include <string>
#include <vector>

class QLabel;

namespace app {

/// A bar above the page with warnings about the document. The user can close it.
class NoticeBar : public QFrame {
public:
    explicit NoticeBar(QWidget* parent);

    /// Shows the sentences; hides the bar if there are none.
    void Show(const std::vector<std::string>& notices);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void ShowIcon();

    QLabel* icon_;
    QLabel* text_;
};

}  // namespace app
