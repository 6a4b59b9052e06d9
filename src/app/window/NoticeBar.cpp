#include "app/window/NoticeBar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStringList>
#include <QStyle>
#include <QToolButton>

#include "app/window/Icons.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

// More lines would leave no room for the page; the tool tip shows all.
constexpr qsizetype kMostShown = 4;

// Amber over the colour of the window: the texts of light and dark themes stay readable on it.
constexpr QColor kTint(255, 191, 0, 56);

QString Sentence(const std::string& notice) {
    QString text = desk::ToQt(notice);
    if (!text.isEmpty()) text[0] = text[0].toUpper();
    return text;
}

}  // namespace

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent), icon_(new QLabel(this)), text_(new QLabel(this)) {
    setFrameShape(QFrame::StyledPanel);
    text_->setObjectName("noticeText");
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* close = new QToolButton(this);
    close->setIcon(ThemeIcon("window-close"));
    close->setAutoRaise(true);
    close->setToolTip("Hide this message");
    close->setAccessibleName("Hide this message");
    connect(close, &QToolButton::clicked, this, &QWidget::hide);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(icon_, 0, Qt::AlignVCenter);
    layout->addWidget(text_, 1);
    layout->addWidget(close, 0, Qt::AlignVCenter);
    hide();
}

void NoticeBar::Show(const std::vector<std::string>& notices) {
    QStringList lines;
    for (const auto& notice : notices) lines << Sentence(notice);
    setVisible(!lines.isEmpty());
    if (lines.isEmpty()) return text_->clear();
    const QString all = lines.join('\n');
    const auto more = lines.size() - kMostShown;
    if (more > 0) {
        lines = lines.first(kMostShown);
        lines << QString("%1 more, in the tool tip of this message.").arg(more);
    }
    text_->setText(lines.join('\n'));
    text_->setToolTip(more > 0 ? all : QString());
    ShowIcon();
}

// Called again for each message, because the screen can change.
void NoticeBar::ShowIcon() {
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize);
    icon_->setPixmap(ThemeIcon("dialog-warning").pixmap(QSize(side, side), devicePixelRatioF()));
}

void NoticeBar::changeEvent(QEvent* event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) ShowIcon();
}

void NoticeBar::paintEvent(QPaintEvent* event) {
    QPainter(this).fillRect(rect(), kTint);
    QFrame::paintEvent(event);
}

}  // namespace app
