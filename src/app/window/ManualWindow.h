#pragma once

#include <QDialog>

namespace app {

/// The manual, which is part of the program, with the pages that it links to.
class ManualWindow final : public QDialog {
public:
    explicit ManualWindow(QWidget* parent);
};

}  // namespace app
