#include "desk/window/LongMessage.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "desk/window/DialogParent.h"
#include "desk/window/WidgetText.h"

namespace desk {

namespace {

/// Size of the text before the user resizes the window, in average characters and lines.
constexpr int kColumns = 84;
constexpr int kLines = 18;

/// A tab stands for one step into the call stack.
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

}  // namespace

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

}  // namespace desk
