#pragma once

#include <QDialog>
#include <QMessageBox>

#include "host/Dialogs.h"

namespace desk {

/// A message too long for a plain box: what went wrong in one line with its facts, where the
/// request brings a failure, and the whole text below, to scroll and to copy.
class LongMessage : public QDialog {
public:
    LongMessage(const host::MessageBoxRequest& request, QMessageBox::Icon icon, QWidget* parent);

private:
    QWidget* Heading(const host::Failure& failure);
    QWidget* Text(const std::string& text);
    QWidget* Buttons(const std::string& text);
};

}  // namespace desk
