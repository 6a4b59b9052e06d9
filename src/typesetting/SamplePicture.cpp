#include "typesetting/SamplePicture.h"

#include <QPainter>
#include <algorithm>
#include <utility>

#include "page/ControlValues.h"
#include "sample/ElementPicture.h"
#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

constexpr double kSpreadInches = 0.01;  // Keeps the last column of pixels inside.
constexpr int kLeastPixelsPerInch = 60;
constexpr int kMostPixelsPerInch = 130;
constexpr QColor kPaper(255, 255, 255);
constexpr QColor kEdge(150, 150, 150);
// Behind black type on white paper.
constexpr QColor kMark(255, 190, 60, 90);

double SpreadWidth() {
    return SampleIndex::PageLeft(SampleIndex::kPages - 1) + SampleIndex::PageWidth() +
           kSpreadInches;
}

double SpreadHeight() {
    return SampleIndex::PageHeight() + kSpreadInches;
}

QSize SizeAt(double pixelsPerInch) {
    return QSizeF(SpreadWidth() * pixelsPerInch, SpreadHeight() * pixelsPerInch).toSize();
}

}  // namespace

SamplePicture::SamplePicture(host::Ref<host::IHost> host, QWidget* parent)
    : QFrame(parent), host_(std::move(host)) {
    setObjectName("samplePicture");
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName("Sample index");
    setAccessibleDescription("Two pages of a sample index with these settings");
    setToolTip("A sample index with these settings");
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void SamplePicture::SetTypesetting(const Typesetting& typesetting) {
    if (isLaidOut_ && typesetting == typesetting_) return;
    typesetting_ = typesetting;
    isLaidOut_ = false;
    RenewSoon();
}

void SamplePicture::SetSubject(Subject subject) {
    if (std::exchange(subject_, subject) != subject) RenewSoon();
}

void SamplePicture::RenewSoon() {
    if (std::exchange(isDue_, true)) return;
    QMetaObject::invokeMethod(this, &SamplePicture::Renew, Qt::QueuedConnection);
}

void SamplePicture::Renew() {
    isDue_ = false;
    if (!isVisible() || PixelsPerInch() <= 0) return;
    try {
        fault_.clear();
        if (!isLaidOut_) LayOut();
        Draw();
    } catch (...) {
        picture_ = QImage();
        fault_ = "The sample cannot be drawn: " + ToQt(CurrentFailure().cause);
    }
    update();
}

void SamplePicture::LayOut() {
    if (!sample_) sample_ = std::make_unique<SampleIndex>(*host_);
    sample_->SetTypesetting(typesetting_);
    isLaidOut_ = true;
}

void SamplePicture::Draw() {
    const double scale = devicePixelRatioF();
    const QSize size = SizeAt(PixelsPerInch() * scale);
    const auto surface =
        host_->NewPixelSurface(size.width(), size.height(), PixelsPerInch() * scale);
    const PictureView view{surface->Device(), size.width(), size.height(), PixelsPerInch() * scale};
    for (const auto& page : sample_->Pages()) DrawElements(*host_, *page, view);
    const auto pixels = surface->Pixels();
    picture_ = QImage(reinterpret_cast<const uchar*>(pixels.data()), size.width(), size.height(),
                      size.width() * static_cast<qsizetype>(sizeof(std::uint32_t)),
                      QImage::Format_ARGB32_Premultiplied)
                   .copy();
    picture_.setDevicePixelRatio(scale);
    marks_.clear();
    for (const auto& place : sample_->Places(subject_))
        marks_ << QRectF(place->XMin(), SpreadHeight() - place->YMax(), place->Width(),
                         place->Height());
}

double SamplePicture::PixelsPerInch() const {
    return std::clamp(std::min(width() / SpreadWidth(), height() / SpreadHeight()), 0.0,
                      static_cast<double>(kMostPixelsPerInch));
}

QSize SamplePicture::sizeHint() const {
    return SizeAt(logicalDpiX());
}

QSize SamplePicture::minimumSizeHint() const {
    return SizeAt(kLeastPixelsPerInch);
}

int SamplePicture::heightForWidth(int width) const {
    return SizeAt(std::min<double>(width / SpreadWidth(), kMostPixelsPerInch)).height();
}

void SamplePicture::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    RenewSoon();
}

void SamplePicture::showEvent(QShowEvent* event) {
    QFrame::showEvent(event);
    RenewSoon();
}

void SamplePicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!fault_.isEmpty())
        return painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, fault_);
    const double scale = PixelsPerInch();
    painter.translate((width() - SpreadWidth() * scale) / 2, 0);
    painter.save();
    painter.scale(scale, scale);
    QPen edge(kEdge);
    edge.setCosmetic(true);
    painter.setPen(edge);
    painter.setBrush(kPaper);
    for (std::size_t page = 0; page < SampleIndex::kPages; ++page)
        painter.drawRect(
            QRectF(SampleIndex::PageLeft(page), SpreadHeight() - SampleIndex::PageHeight(),
                   SampleIndex::PageWidth(), SampleIndex::PageHeight() - kSpreadInches));
    painter.restore();
    painter.drawImage(0, 0, picture_);
    painter.scale(scale, scale);
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    for (const QRectF& mark : marks_) painter.fillRect(mark, kMark);
}

}  // namespace gazetteer
