#include "app/window/NoticeBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStringList>
#include <QStyle>
#include <QToolButton>

#include "app/window/Icons.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

// More lines would leave no room for the page; the tool tip shows all.
constexpr qsizetype kMostShown = 4;

QString Sentence(const std::string& notice) {
    QString text = desk::ToQt(notice);
    if (!text.isEmpty()) text[0] = text[0].toUpper();
    return text;
}

}  // namespace

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent),
      icon_(new QLabel(this)),
      text_(new QLabel(this)),
      details_(new QPushButton("Show &Findings", this)) {
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    text_->setObjectName("noticeText");
    text_->setForegroundRole(QPalette::ToolTipText);
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    details_->setObjectName("showFindings");
    details_->setToolTip("List what would be wrong in print, with its places");
    auto* close = new QToolButton(this);
    close->setIcon(ThemeIcon("window-close"));
    close->setAutoRaise(true);
    close->setToolTip("Hide this message");
    close->setAccessibleName("Hide this message");
    connect(close, &QToolButton::clicked, this, &QWidget::hide);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(icon_, 0, Qt::AlignVCenter);
    layout->addWidget(text_, 1);
    layout->addWidget(details_, 0, Qt::AlignVCenter);
    layout->addWidget(close, 0, Qt::AlignVCenter);
    hide();
}

void NoticeBar::Show(const std::vector<std::string>& notices, bool details) {
    QStringList lines;
    for (const auto& notice : notices) lines << Sentence(notice);
    details_->setVisible(details);
    const QString all = lines.join('\n');
    if (all == all_) return;
    all_ = all;
    setVisible(!lines.isEmpty());
    const auto more = lines.size() - kMostShown;
    if (more > 0) {
        lines = lines.first(kMostShown);
        lines << QString("%1 more, in the tool tip of this message.").arg(more);
    }
    text_->setText(lines.join('\n'));
    text_->setToolTip(more > 0 ? all : QString());
    // Set each time, because screen and theme can change.
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize);
    icon_->setPixmap(ThemeIcon("dialog-warning").pixmap(QSize(side, side), devicePixelRatioF()));
}

}  // namespace app
