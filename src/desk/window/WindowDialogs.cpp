#include "desk/window/WindowDialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>
#include <utility>

#include "desk/window/WidgetText.h"
#include "host/Dialogs.h"

namespace desk {
namespace {

/// Initial size of the text, in average characters and lines.
constexpr int kColumns = 84;
constexpr int kLines = 18;

/// Width of a tab, in characters: one level of the call stack.
constexpr int kTabWidth = 4;

QLabel* PlainLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QStyle::StandardPixmap PixmapOf(QMessageBox::Icon icon) {
    if (icon == QMessageBox::Critical) return QStyle::SP_MessageBoxCritical;
    if (icon == QMessageBox::Warning) return QStyle::SP_MessageBoxWarning;
    return QStyle::SP_MessageBoxInformation;
}

/// The dialog for a long message: the cause and its facts, if the request has a failure, and the
/// whole text, which can be scrolled and copied.
class LongMessage : public QDialog {
public:
    LongMessage(const host::MessageBoxRequest& request, QMessageBox::Icon icon, QWidget* parent);

private:
    QWidget* Heading(const host::Failure& failure);
    QWidget* Text(const std::string& text);
    QWidget* Buttons(const std::string& text);
};

LongMessage::LongMessage(const host::MessageBoxRequest& request, QMessageBox::Icon icon,
                         QWidget* parent)
    : QDialog(parent) {
    setWindowTitle(ToQt(request.title));
    auto* layout = new QVBoxLayout(this);
    if (request.failure != nullptr) {
        auto* top = new QHBoxLayout;
        auto* picture = new QLabel(this);
        const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
        picture->setPixmap(style()->standardIcon(PixmapOf(icon), nullptr, this).pixmap(size, size));
        top->addWidget(picture, 0, Qt::AlignTop);
        top->addSpacing(style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing, nullptr, this));
        top->addWidget(Heading(*request.failure), 1);
        layout->addLayout(top);
    }
    layout->addWidget(Text(request.text), 1);
    layout->addWidget(Buttons(request.text));
    const QFontMetrics metrics(font());
    ResizeToScreen(*this, sizeHint().expandedTo({metrics.averageCharWidth() * kColumns,
                                                 metrics.lineSpacing() * (kLines + 8)}));
}

QWidget* LongMessage::Heading(const host::Failure& failure) {
    auto* heading = new QWidget(this);
    auto* grid = new QGridLayout(heading);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnStretch(1, 1);
    auto* cause = PlainLabel(ShownLines(failure.cause), heading);
    cause->setObjectName("cause");
    QFont bold = cause->font();
    bold.setBold(true);
    cause->setFont(bold);
    grid->addWidget(cause, 0, 0, 1, 2);
    int row = 1;
    for (const auto& fact : failure.facts) {
        grid->addWidget(PlainLabel(ToQt(fact.name) + ":", heading), row, 0, Qt::AlignTop);
        grid->addWidget(PlainLabel(ShownLines(fact.value), heading), row++, 1);
    }
    return heading;
}

QWidget* LongMessage::Text(const std::string& text) {
    auto* box = new QPlainTextEdit(ShownLines(text), this);
    box->setObjectName("text");
    box->setReadOnly(true);
    box->setTabChangesFocus(true);
    box->setAccessibleName("Text of the message");
    const QFontMetrics metrics(box->font());
    box->setTabStopDistance(metrics.averageCharWidth() * kTabWidth);
    box->setMinimumSize(metrics.averageCharWidth() * kColumns / 2, metrics.lineSpacing() * 5);
    box->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    return box;
}

QWidget* LongMessage::Buttons(const std::string& text) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    auto* copy = buttons->addButton("Copy Text", QDialogButtonBox::ActionRole);
    copy->setAutoDefault(false);
    connect(copy, &QPushButton::clicked, this,
            [text] { QApplication::clipboard()->setText(ShownLines(text)); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
    ok->setDefault(true);
    ok->setFocus();
    return buttons;
}

/// The lowest four bits of a style select the buttons, the next three the icon.
constexpr std::int32_t kButtonBits = 0x0F;
constexpr std::int32_t kIconBits = 0x70;

/// Messages with more lines or bytes use LongMessage.
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
    // A message needs an arrow pointer, not the wait pointer of the operation behind it.
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
