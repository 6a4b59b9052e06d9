#pragma once

#include <QFrame>
#include <string>
#include <vector>

class QLabel;

namespace app {

/// A strip above the page with warnings about the document. The user can hide it.
class NoticeBar : public QFrame {
public:
    explicit NoticeBar(QWidget* parent);

    /// Shows the sentences; hides the strip where there are none.
    void Show(const std::vector<std::string>& notices);

private:
    QLabel* icon_;
    QLabel* text_;
};

}  // namespace app
