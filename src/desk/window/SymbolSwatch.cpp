#include "desk/window/SymbolSwatch.h"

#include <QPainter>
#include <algorithm>
#include <cstring>
#include <utility>

#include "desk/window/WidgetText.h"
#include "host/Failure.h"

namespace desk {

namespace {

constexpr std::uint32_t kPaper = 0xFFFFFF;

/// Border around the picture, in inches.
constexpr double kBorder = 0.1;

/// Approximate share of the line height above the baseline, to centre the sample.
constexpr double kAscent = 0.8;

QImage Copied(host::IHostPixelSurface& surface) {
    QImage image(surface.Width(), surface.Height(), QImage::Format_ARGB32_Premultiplied);
    const auto pixels = surface.Pixels();
    const auto width = static_cast<std::size_t>(surface.Width());
    for (int y = 0; y < image.height(); ++y)
        std::memcpy(image.scanLine(y), pixels.data() + static_cast<std::size_t>(y) * width,
                    width * sizeof(std::uint32_t));
    return image;
}

}  // namespace

SymbolSwatch::SymbolSwatch(host::IHost& host, QWidget* parent) : QFrame(parent), host_(host) {
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName("Preview of the symbol");
}

void SymbolSwatch::SetSymbol(host::Ref<host::IHostSymbol> symbol) {
    symbol_ = std::move(symbol);
    if (const auto text = host::As<host::IHostTextSymbol>(symbol_))
        firstFamily_ = text->Font()->Name();
    Redraw();
}

void SymbolSwatch::Redraw() {
    picture_ = {};
    update();
}

QSize SymbolSwatch::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 56, fontMetrics().height() * 7};
}

QSize SymbolSwatch::minimumSizeHint() const {
    return sizeHint() * 0.6;
}

void SymbolSwatch::paintEvent(QPaintEvent* event) {
    const double ratio = devicePixelRatioF();
    const QRect inner = contentsRect();
    const QSize pixels = (QSizeF(inner.size()) * ratio).toSize();
    if (picture_.size() != pixels && symbol_ && !pixels.isEmpty()) {
        try {
            Draw(pixels, logicalDpiY() * ratio);
        } catch (const host::Failure& failure) {
            picture_ = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
            picture_.fill(Qt::white);
            described_ = "No preview: " + ToQt(failure.cause);
        }
        surface_.reset();
        picture_.setDevicePixelRatio(ratio);
        // Queued: a receiver may change its layout, which must not happen while painting.
        QMetaObject::invokeMethod(
            this, [this] { Q_EMIT Described(described_); }, Qt::QueuedConnection);
    }
    QPainter(this).drawImage(inner.topLeft(), picture_);
    QFrame::paintEvent(event);
}

void SymbolSwatch::Draw(const QSize& pixels, double dotsPerInch) {
    described_ = "Preview";
    surface_ = host_.NewPixelSurface(pixels.width(), pixels.height(), dotsPerInch);
    auto& devices = host_.Devices();
    const host::Brush paper = devices.CreateSolidBrush(kPaper);
    devices.FillRect(surface_->Device(), {0, 0, pixels.width(), pixels.height()}, paper);
    devices.DeleteObject(paper);
    if (const auto text = host::As<host::IHostTextSymbol>(symbol_))
        DrawText(*text, pixels, dotsPerInch);
    else
        DrawFill(pixels, dotsPerInch);
    picture_ = Copied(*surface_);
}

void SymbolSwatch::DrawText(const host::IHostTextSymbol& symbol, const QSize& pixels,
                            double dotsPerInch) {
    // The sample is upright; placement and angle belong to the page.
    const auto sample = host::As<host::IHostTextSymbol>(symbol.Copy());
    sample->SetAngle(0);
    sample->SetHorizontalPlacement(0);
    sample->SetVerticalPlacement(2);
    sample->SetText(SampleText(symbol));
    const auto extent = sample->MeasureText(surface_->Device(), Transformation(pixels, dotsPerInch),
                                            sample->Text());
    const double perPoint = dotsPerInch / host::kPointsPerInch;
    const double border = kBorder * dotsPerInch;
    const double width = std::max(1.0, extent.xSize * perPoint);
    const double height = std::max(1.0, extent.ySize * perPoint);
    const double shrink =
        std::min({1.0, (pixels.width() - 2 * border) / width, (pixels.height() - border) / height});
    if (shrink < 1)
        described_ = QString("Preview, reduced to %1 % of the true size")
                         .arg(std::max(1, static_cast<int>(shrink * 100)));
    else
        described_ = "Preview in true size";
    // Y grows upward.
    const double baseline = pixels.height() / 2.0 - height * shrink * (kAscent - 0.5);
    const auto start = host_.NewPoint();
    start->SetX((pixels.width() - width * shrink) / 2);
    start->SetY(baseline);
    const auto end = host_.NewPoint();
    end->SetX(pixels.width());
    end->SetY(baseline);
    const auto line = host_.NewLine();
    line->SetStartPoint(start);
    line->SetEndPoint(end);
    Paint(sample, line, dotsPerInch * std::max(shrink, 0.001));
}

std::string SymbolSwatch::SampleText(const host::IHostTextSymbol& symbol) const {
    // A sample text that begins with the initial font name would be wrong for another font.
    std::string text = symbol.Text();
    if (!text.empty() && (firstFamily_.empty() || !text.starts_with(firstFamily_))) return text;
    return symbol.Font()->Name() + " " + host_.Locale().FormatNumber(symbol.Size());
}

void SymbolSwatch::DrawFill(const QSize& pixels, double dotsPerInch) {
    const double border = kBorder * 2 * dotsPerInch;
    const auto area = host_.NewEnvelope();
    area->SetCoords(border, border, pixels.width() - border, pixels.height() - border);
    Paint(symbol_, area, dotsPerInch);
}

host::Ref<host::IHostDisplayTransformation> SymbolSwatch::Transformation(const QSize& pixels,
                                                                         double dotsPerInch) const {
    const auto extent = host_.NewEnvelope();
    extent->SetCoords(0, 0, pixels.width(), pixels.height());
    auto transformation = host_.NewDisplayTransformation();
    transformation->SetShownExtent(extent);
    transformation->SetFullExtent(extent);
    transformation->SetDeviceRectangle({0, 0, pixels.width(), pixels.height()});
    transformation->SetDotsPerInch(dotsPerInch);
    return transformation;
}

void SymbolSwatch::Paint(const host::Ref<host::IHostSymbol>& symbol,
                         const host::Ref<host::IHostGeometry>& geometry, double dotsPerInch) {
    symbol->PrepareDevice(surface_->Device(),
                          Transformation({surface_->Width(), surface_->Height()}, dotsPerInch));
    symbol->DrawGeometry(geometry);
    symbol->ReleaseDevice();
}

}  // namespace desk
