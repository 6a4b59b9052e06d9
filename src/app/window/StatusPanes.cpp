#include "app/window/StatusPanes.h"

#include <QLabel>
#include <QPainter>
#include <QToolButton>

namespace app {
namespace {

constexpr int kSpokes = 12;

}  // namespace

void BusySign::Take(desk::AnimationStep step) {
    using desk::AnimationStep;
    if (step == AnimationStep::Show || step == AnimationStep::Hide)
        shown_ = step == AnimationStep::Show;
    else
        playing_ = step == AnimationStep::Play;
    repaint();
}

void BusySign::Step() {
    if (!shown_ || !playing_) return;
    turn_ = (turn_ + 1) % kSpokes;
    repaint();
}

QSize BusySign::sizeHint() const {
    const int side = fontMetrics().height();
    return {side, side};
}

void BusySign::paintEvent(QPaintEvent*) {
    if (!shown_) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    const double reach = sizeHint().height() * 0.45;
    QColor color = palette().color(QPalette::WindowText);
    for (int spoke = 0; spoke < kSpokes; ++spoke) {
        const int age = (turn_ - spoke + kSpokes) % kSpokes;
        color.setAlphaF(1.0F - static_cast<float>(age) / kSpokes);
        painter.setPen(QPen(color, reach * 0.2, Qt::SolidLine, Qt::RoundCap));
        painter.save();
        painter.rotate(360.0 * spoke / kSpokes);
        painter.drawLine(QPointF(0, -reach * 0.5), QPointF(0, -reach * 0.9));
        painter.restore();
    }
}

StatusPanes::StatusPanes(QMenu* zooms, QWidget* parent)
    : QStatusBar(parent),
      sign_(new BusySign(this)),
      text_(new QLabel(this)),
      page_(new QLabel(this)),
      zoom_(new QToolButton(this)) {
    sign_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    text_->setObjectName("statusText");
    text_->setTextFormat(Qt::PlainText);
    // A long text must not widen the window.
    text_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    page_->setObjectName("statusPage");
    page_->setMargin(fontMetrics().averageCharWidth() / 2);
    zoom_->setObjectName("statusZoom");
    zoom_->setMenu(zooms);
    zoom_->setPopupMode(QToolButton::InstantPopup);
    zoom_->setAutoRaise(true);
    zoom_->setToolTip("Zoom");
    addWidget(sign_);
    addWidget(text_, 1);
    addPermanentWidget(page_);
    addPermanentWidget(zoom_);
}

void StatusPanes::ShowRunText(const QString& text) {
    text_->setText(text.isEmpty() ? result_ : text);
    text_->repaint();
    sign_->Step();
}

void StatusPanes::ShowAnimation(desk::AnimationStep step) {
    sign_->Take(step);
}

void StatusPanes::ShowResult(const QString& text) {
    result_ = text;
    text_->setText(text);
    text_->setToolTip(text);
}

void StatusPanes::ShowPage(const QString& text) {
    page_->setText(text);
    page_->setVisible(!text.isEmpty());
}

void StatusPanes::ShowZoom(double zoom) {
    zoom_->setVisible(zoom > 0);
    zoom_->setText(QString("%1 %").arg(qRound(zoom * 100)));
}

}  // namespace app
