#include "app/window/PageSizeBox.h"

#include <QGridLayout>
#include <QLabel>
#include <cmath>
#include <utility>

#include "app/document/PageSetup.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

QString NameOf(const SheetFormat& format) {
    QString name = desk::ToQt(std::string(format.name));
    return name.replace(0, 1, name.left(1).toUpper());
}

bool IsNear(double one, double other) {
    constexpr double kNear = 1e-4;  // Inches.
    return std::abs(one - other) < kNear;
}

}  // namespace

PageSizeBox::PageSizeBox(QWidget* parent)
    : QWidget(parent),
      format_(new QComboBox(this)),
      orientation_(new QComboBox(this)),
      width_(new LengthBox("pageWidth", "Page width", this)),
      height_(new LengthBox("pageHeight", "Page height", this)) {
    format_->setObjectName("pageSize");
    for (const auto& format : SheetFormats()) format_->addItem(NameOf(format));
    format_->addItem("Custom");
    orientation_->setObjectName("orientation");
    orientation_->setAccessibleName("Orientation");
    orientation_->addItems({"Portrait", "Landscape"});
    auto* sides = new QHBoxLayout;
    sides->addWidget(width_);
    sides->addWidget(new QLabel(QString(QChar(0x00D7)), this));
    sides->addWidget(height_);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(format_, 0, 0);
    layout->addWidget(orientation_, 0, 1);
    layout->addLayout(sides, 1, 0, 1, 2);
    layout->setColumnStretch(2, 1);
    connect(format_, &QComboBox::activated, this, &PageSizeBox::TakeFormat);
    connect(orientation_, &QComboBox::activated, this, &PageSizeBox::Turn);
    for (LengthBox* const box : {width_, height_})
        connect(box, &LengthBox::Changed, this, &PageSizeBox::TakeSides);
}

void PageSizeBox::SetSize(const PageSize& size) {
    width_->SetInches(size.width);
    height_->SetInches(size.height);
    ShowFormat(size);
    TakeSides();
}

PageSize PageSizeBox::Size() const {
    return {width_->Inches().value_or(0), height_->Inches().value_or(0)};
}

QString PageSizeBox::Fault() {
    const auto fault = SizeFault(Size(), WindowUnit());
    ShowWrong(*width_, fault && fault->field == SetupField::Width);
    ShowWrong(*height_, fault && fault->field == SetupField::Height);
    return fault ? desk::ToQt(fault->sentence) : QString();
}

// Chooses the format that has the size either way round.
void PageSizeBox::ShowFormat(const PageSize& size) {
    const auto formats = SheetFormats();
    int index = 0;
    for (const auto& [name, upright] : formats) {
        const bool stands =
            IsNear(size.width, upright.width) && IsNear(size.height, upright.height);
        const bool lies = IsNear(size.width, upright.height) && IsNear(size.height, upright.width);
        if (stands || lies) break;
        ++index;
    }
    format_->setCurrentIndex(index);
    width_->setEnabled(index == format_->count() - 1);
    height_->setEnabled(width_->isEnabled());
}

// The sides show named sizes too, but cannot be edited then.
void PageSizeBox::TakeFormat() {
    const auto index = static_cast<std::size_t>(format_->currentIndex());
    const bool custom = index == SheetFormats().size();
    width_->setEnabled(custom);
    height_->setEnabled(custom);
    if (custom) return width_->setFocus();
    PageSize size = SheetFormats()[index].size;
    if (IsLandscape()) std::swap(size.width, size.height);
    width_->SetInches(size.width);
    height_->SetInches(size.height);
    Q_EMIT Changed();
}

void PageSizeBox::TakeSides() {
    const PageSize size = Size();
    if (size.width != size.height) orientation_->setCurrentIndex(size.width > size.height ? 1 : 0);
    Q_EMIT Changed();
}

void PageSizeBox::Turn() {
    const PageSize size = Size();
    if (!width_->Inches() || !height_->Inches()) return;
    if (IsLandscape() == (size.width > size.height)) return;
    width_->SetInches(size.height);
    height_->SetInches(size.width);
    Q_EMIT Changed();
}

}  // namespace app
