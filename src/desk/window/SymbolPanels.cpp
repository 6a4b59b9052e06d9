#include "desk/window/SymbolPanels.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QFontComboBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QStyle>
#include <utility>

#include "desk/text/ItalicFont.h"
#include "desk/window/WidgetText.h"

namespace desk {
namespace {

/// Points.
constexpr double kLeastSize = 0.5;
constexpr double kMostSize = 400;

/// If two makers have a family of the same name, Qt appends the maker's name in brackets.
QString WithoutMaker(const QString& family) {
    static const QRegularExpression maker(" \\[[^\\]]*\\]$");
    return QString(family).remove(maker);
}

/// Sets a colour picked by the user, which must be visible.
void Paint(const host::Ref<host::IHostColor>& color, std::uint32_t rgb) {
    color->SetRGB(rgb);
    color->SetTransparent(false);
}

}  // namespace

ColorButton::ColorButton(QWidget* parent) : QPushButton(parent) {
    setAutoDefault(false);
    connect(this, &QPushButton::clicked, this, &ColorButton::Pick);
    ShowColor();
}

std::uint32_t ColorButton::Rgb() const {
    return static_cast<std::uint32_t>(color_.red()) |
           static_cast<std::uint32_t>(color_.green()) << 8U |
           static_cast<std::uint32_t>(color_.blue()) << 16U;
}

void ColorButton::SetRgb(std::uint32_t rgb) {
    color_ = QColor(static_cast<int>(rgb & 0xFFU), static_cast<int>(rgb >> 8U & 0xFFU),
                    static_cast<int>(rgb >> 16U & 0xFFU));
    ShowColor();
}

void ColorButton::Pick() {
    const QColor picked = QColorDialog::getColor(color_, this, "Colour");
    if (!picked.isValid()) return;
    color_ = picked;
    ShowColor();
    Q_EMIT Picked();
}

void ColorButton::changeEvent(QEvent* event) {
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::FontChange) ShowColor();
}

void ColorButton::ShowColor() {
    const QSize size(fontMetrics().height() * 2, fontMetrics().height());
    const qreal ratio = devicePixelRatioF();
    QPixmap swatch(size * ratio);
    swatch.setDevicePixelRatio(ratio);
    swatch.fill(isEnabled() ? color_ : QColor(Qt::transparent));
    QPainter painter(&swatch);
    painter.setPen(palette().color(QPalette::Disabled, QPalette::WindowText));
    painter.drawRect(QRectF(0.5, 0.5, size.width() - 1.0, size.height() - 1.0));
    painter.end();
    setIcon(QIcon(swatch));
    setIconSize(size);
    setText(color_.name().toUpper() + "...");
    setAccessibleDescription("Colour " + color_.name());
}

TextSymbolPanel::TextSymbolPanel(host::Ref<host::IHostTextSymbol> symbol, QWidget* parent)
    : QWidget(parent),
      symbol_(std::move(symbol)),
      firstFamily_(ToQt(symbol_->Font()->Name())),
      family_(new QFontComboBox(this)),
      size_(new QDoubleSpinBox(this)),
      bold_(new QCheckBox("&Bold", this)),
      italic_(new QCheckBox("&Italic", this)),
      color_(new ColorButton(this)),
      note_(new QLabel(this)) {
    family_->setObjectName("family");
    family_->setEditable(true);
    size_->setObjectName("size");
    size_->setRange(kLeastSize, kMostSize);
    size_->setDecimals(2);
    size_->setSingleStep(0.5);
    size_->setSuffix(" pt");
    bold_->setObjectName("bold");
    italic_->setObjectName("italic");
    color_->setObjectName("color");
    color_->setAccessibleName("Colour of the text");
    color_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    size_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    note_->setObjectName("fontNote");
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    auto* form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow("&Font:", family_);
    form->addRow("&Size:", size_);
    form->addRow({}, bold_);
    form->addRow({}, italic_);
    form->addRow("&Colour:", color_);
    form->addRow(note_);
    Fill();
    ConnectSignals();
}

void TextSymbolPanel::Fill() {
    // An editable text keeps a font that the list does not contain.
    family_->setCurrentIndex(family_->findText(firstFamily_, Qt::MatchFixedString));
    family_->setEditText(firstFamily_);
    size_->setValue(symbol_->Size());
    bold_->setChecked(symbol_->Font()->Bold());
    italic_->setChecked(IsItalic(*symbol_->Font()));
    color_->SetRgb(symbol_->Color()->RGB());
    UpdateNote();
}

void TextSymbolPanel::ConnectSignals() {
    connect(family_, &QComboBox::editTextChanged, this, &TextSymbolPanel::SetFamily);
    connect(size_, &QDoubleSpinBox::valueChanged, this, [this](double points) {
        symbol_->SetSize(points);
        Q_EMIT Edited();
    });
    connect(bold_, &QCheckBox::toggled, this, [this](bool bold) {
        const auto font = symbol_->Font();
        font->SetBold(bold);
        symbol_->SetFont(font);
        Q_EMIT Edited();
    });
    connect(italic_, &QCheckBox::toggled, this, [this](bool italic) {
        const auto font = symbol_->Font();
        SetItalic(*font, italic);
        symbol_->SetFont(font);
        Q_EMIT Edited();
    });
    connect(color_, &ColorButton::Picked, this, [this] {
        const auto color = symbol_->Color();
        Paint(color, color_->Rgb());
        symbol_->SetColor(color);
        Q_EMIT Edited();
    });
}

void TextSymbolPanel::SetFamily(const QString& family) {
    const QString name = WithoutMaker(family.trimmed());
    const auto font = symbol_->Font();
    font->SetName(FromQt(name.isEmpty() ? firstFamily_ : name));
    symbol_->SetFont(font);
    UpdateNote();
    Q_EMIT Edited();
}

void TextSymbolPanel::UpdateNote() {
    const QString family = ToQt(symbol_->Font()->Name());
    if (family_->currentText().trimmed().isEmpty())
        note_->setText("Without a name the font stays " + family + ".");
    else if (!QFontDatabase::hasFamily(family))
        note_->setText("The font " + family + " is not installed. Another stands in for it.");
    else
        note_->clear();
}

FillSymbolPanel::FillSymbolPanel(host::IHost& host, host::Ref<host::IHostFillSymbol> symbol,
                                 QWidget* parent)
    : QWidget(parent),
      host_(host),
      symbol_(std::move(symbol)),
      lastOutline_(symbol_->Outline()),
      filled_(new QCheckBox("&Fill with colour:", this)),
      color_(new ColorButton(this)),
      outlined_(new QCheckBox("&Outline in colour:", this)),
      outlineColor_(new ColorButton(this)) {
    filled_->setObjectName("filled");
    color_->setObjectName("color");
    color_->setAccessibleName("Colour of the fill");
    outlined_->setObjectName("outlined");
    outlineColor_->setObjectName("outlineColor");
    outlineColor_->setAccessibleName("Colour of the outline");
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(filled_, 0, 0);
    grid->addWidget(color_, 0, 1);
    grid->addWidget(outlined_, 1, 0);
    grid->addWidget(outlineColor_, 1, 1);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(2, 1);
    Fill();
    connect(filled_, &QCheckBox::toggled, this, &FillSymbolPanel::SetFilled);
    connect(color_, &ColorButton::Picked, this, &FillSymbolPanel::SetFillColor);
    connect(outlined_, &QCheckBox::toggled, this, &FillSymbolPanel::SetOutlined);
    connect(outlineColor_, &ColorButton::Picked, this, &FillSymbolPanel::SetOutlineColor);
}

void FillSymbolPanel::Fill() {
    filled_->setChecked(!symbol_->Color()->Transparent());
    color_->SetRgb(symbol_->Color()->RGB());
    outlined_->setChecked(symbol_->Outline() != nullptr);
    if (symbol_->Outline()) outlineColor_->SetRgb(symbol_->Outline()->Color()->RGB());
    color_->setEnabled(filled_->isChecked());
    outlineColor_->setEnabled(outlined_->isChecked());
}

void FillSymbolPanel::SetFilled(bool filled) {
    const auto color = symbol_->Color();
    color->SetTransparent(!filled);
    symbol_->SetColor(color);
    color_->setEnabled(filled);
    Q_EMIT Edited();
}

void FillSymbolPanel::SetFillColor() {
    const auto color = symbol_->Color();
    Paint(color, color_->Rgb());
    symbol_->SetColor(color);
    Q_EMIT Edited();
}

void FillSymbolPanel::SetOutlined(bool outlined) {
    if (outlined && !lastOutline_) {
        lastOutline_ = host_.NewLineSymbol();
        outlineColor_->SetRgb(lastOutline_->Color()->RGB());
    }
    symbol_->SetOutline(outlined ? lastOutline_ : nullptr);
    outlineColor_->setEnabled(outlined);
    Q_EMIT Edited();
}

void FillSymbolPanel::SetOutlineColor() {
    const auto color = lastOutline_->Color();
    Paint(color, outlineColor_->Rgb());
    lastOutline_->SetColor(color);
    Q_EMIT Edited();
}

}  // namespace desk
