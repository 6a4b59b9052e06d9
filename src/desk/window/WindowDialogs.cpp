#include "desk/window/WindowDialogs.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "desk/window/LongMessage.h"
#include "desk/window/WidgetText.h"

namespace desk {

namespace {

/// Buttons stand in the lowest four bits of a style, the icon in the next.
constexpr std::int32_t kButtonBits = 0x0F;
constexpr std::int32_t kIconBits = 0x70;

/// A message of more lines or bytes than this gets a box that scrolls.
constexpr int kMostPlainLines = 16;
constexpr std::size_t kMostPlainBytes = 1200;

QMessageBox::Icon IconOf(std::int32_t style) {
    switch (style & kIconBits) {
        case host::kStopOk:
            return QMessageBox::Critical;
        case host::kWarningOk:
            return QMessageBox::Warning;
        case host::kInformationOk:
            return QMessageBox::Information;
        default:
            return (style & kButtonBits) == host::kYesNo ? QMessageBox::Question
                                                         : QMessageBox::NoIcon;
    }
}

bool NeedsRoom(const host::MessageBoxRequest& request) {
    return request.failure != nullptr || request.text.size() > kMostPlainBytes ||
           ShownLines(request.text).count('\n') >= kMostPlainLines;
}

host::MessageAnswer ShowPlain(const host::MessageBoxRequest& request, QWidget* parent) {
    const bool asks = (request.style & kButtonBits) == host::kYesNo;
    QMessageBox box(parent);
    box.setIcon(IconOf(request.style));
    box.setWindowTitle(ToQt(request.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(ShownLines(request.text));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setStandardButtons(asks ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    box.setDefaultButton(asks ? QMessageBox::Yes : QMessageBox::Ok);
    box.setEscapeButton(asks ? QMessageBox::No : QMessageBox::Ok);
    const int pressed = box.exec();
    if (!asks) return host::MessageAnswer::Ok;
    return pressed == QMessageBox::Yes ? host::MessageAnswer::Yes : host::MessageAnswer::No;
}

}  // namespace

WindowDialogs::WindowDialogs(ParentWidget parent) : parent_(std::move(parent)) {}

host::MessageAnswer WindowDialogs::MessageBox(const host::MessageBoxRequest& request) {
    QWidget* parent = DialogParent(parent_);
    // Whatever is going on behind, a message wants an arrow and not an hourglass.
    QApplication::setOverrideCursor(Qt::ArrowCursor);
    auto answer = host::MessageAnswer::Ok;
    if (NeedsRoom(request) && (request.style & kButtonBits) != host::kYesNo)
        LongMessage(request, IconOf(request.style), parent).exec();
    else
        answer = ShowPlain(request, parent);
    QApplication::restoreOverrideCursor();
    return answer;
}

std::optional<std::string> WindowDialogs::InputBox(const std::string& prompt,
                                                   const std::string& title,
                                                   const std::string& initial) {
    QDialog dialog(DialogParent(parent_));
    dialog.setWindowTitle(ToQt(title));
    auto* label = new QLabel(WithoutMnemonic(ShownLines(prompt)), &dialog);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    auto* edit = new QLineEdit(ToQt(initial), &dialog);
    edit->setAccessibleName(ToQt(prompt));
    edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * 44);
    edit->selectAll();
    label->setBuddy(edit);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(label);
    layout->addWidget(edit);
    layout->addStretch();
    layout->addWidget(buttons);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return FromQt(edit->text());
}

void WindowDialogs::Beep() {
    QApplication::beep();
}

}  // namespace desk
