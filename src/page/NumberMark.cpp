#include "page/NumberMark.h"

#include <QEvent>
#include <QToolTip>
#include <algorithm>
#include <utility>

namespace gazetteer {
namespace {

// At least 3 to 1 against white and against the background of dark themes.
constexpr QColor kWrong(220, 50, 47);
// Logical pixels.
constexpr int kFrameWidth = 2;
constexpr int kGap = 2;
constexpr int kMargin = 3;

}  // namespace

NumberMark::NumberMark(QLineEdit& box, QWidget& form, QString sentence,
                       std::function<bool(const QString&)> accepts)
    : QValidator(&box),
      box_(box),
      form_(form),
      sentence_(std::move(sentence)),
      description_(box.accessibleDescription()),
      accepts_(std::move(accepts)),
      frame_(new QFrame(&box)) {
    frame_->setFrameShape(QFrame::Box);
    frame_->setLineWidth(kFrameWidth);
    QPalette red;
    red.setColor(QPalette::WindowText, kWrong);
    frame_->setPalette(red);
    frame_->setForegroundRole(QPalette::WindowText);
    frame_->setAttribute(Qt::WA_TransparentForMouseEvents);
    frame_->hide();
    box.setValidator(this);
    box.installEventFilter(this);
    connect(&box, &QLineEdit::textChanged, this, &NumberMark::Update);
}

QValidator::State NumberMark::validate(QString& text, int&) const {
    return accepts_(text) ? Acceptable : Intermediate;
}

bool NumberMark::eventFilter(QObject* box, QEvent* event) {
    switch (event->type()) {
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            Update();
            break;
        default:
            break;
    }
    return QValidator::eventFilter(box, event);
}

void NumberMark::Update() {
    const bool wrong = !box_.hasAcceptableInput();
    frame_->setGeometry(box_.rect());
    frame_->setVisible(wrong);
    box_.setToolTip(wrong ? sentence_ : QString());
    box_.setAccessibleDescription(wrong ? (description_ + ". " + sentence_) : description_);
    delete label_;
    if (wrong && box_.hasFocus()) ShowSentence();
}

void NumberMark::ShowSentence() {
    label_ = new QLabel(sentence_, &form_);
    label_->setAttribute(Qt::WA_TransparentForMouseEvents);
    label_->setFrameShape(QFrame::Box);
    label_->setMargin(kMargin);
    label_->setPalette(QToolTip::palette());
    label_->setBackgroundRole(QPalette::ToolTipBase);
    label_->setForegroundRole(QPalette::ToolTipText);
    label_->setAutoFillBackground(true);
    label_->adjustSize();
    QPoint place = box_.mapTo(&form_, QPoint(0, box_.height() + kGap));
    place.setX(std::clamp(place.x(), 0, std::max(0, form_.width() - label_->width())));
    if (place.y() + label_->height() > form_.height())
        place.setY(box_.mapTo(&form_, QPoint()).y() - kGap - label_->height());
    label_->move(place);
    label_->show();
}

}  // namespace gazetteer
