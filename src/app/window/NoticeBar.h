#pragma once

#include <QFrame>
#include <vector>

#include "app/window/WindowSession.h"

class QLabel;
class QVBoxLayout;

namespace app {

/// A strip above the page that tells of what is odd about the document. The user may put it away.
class NoticeBar : public QFrame {
public:
    explicit NoticeBar(QWidget* parent);

    /// Hides itself where there is nothing to tell.
    void Show(const std::vector<Notice>& notices);
    QString Text() const;

private:
    QLabel* icon_;
    QLabel* text_;
};

}  // namespace app
