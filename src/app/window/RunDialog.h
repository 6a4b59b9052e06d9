#pragma once

#include <QDialog>

#include "app/document/RunProgress.h"

class QLabel;
class QProgressBar;

namespace app {

/// Shows how far a run has come. Cancel, Escape and closing it reject it. It is not modal: during a
/// run RunControl keeps input from all other windows.
class RunDialog : public QDialog {
public:
    explicit RunDialog(QWidget* parent);

    void Show(const RunProgress::Shown& shown);

private:
    QLabel* text_;
    QProgressBar* bar_;
};

}  // namespace app
