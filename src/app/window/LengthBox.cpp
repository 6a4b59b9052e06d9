#include "app/window/LengthBox.h"

#include <QLineEdit>
#include <QLocale>
#include <QRegularExpression>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <cmath>

namespace app {
namespace {

constexpr double kPerInch[] = {1, kMillimetersPerInch};  // By LengthUnit.

double UnitsPerInch() {
    return kPerInch[static_cast<int>(WindowUnit())];
}

// Returns a number with as many decimals as it needs, at most those of the unit.
QString TextOf(double inches) {
    const bool metric = WindowUnit() == LengthUnit::Millimeters;
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    QString text = locale.toString(inches * UnitsPerInch(), 'f', metric ? 2 : 3);
    while (text.endsWith(locale.zeroDigit())) text.chop(1);
    if (text.endsWith(locale.decimalPoint())) text.chop(1);
    return text + (metric ? " mm" : " in");
}

// Takes point and comma for the decimal separator.
std::optional<double> InchesIn(const QString& text) {
    static const QRegularExpression kForm(
        R"(^\s*([+-]?[0-9.,]+)\s*(?:(mm)|(cm)|(in|inch|inches|"))?\s*$)",
        QRegularExpression::CaseInsensitiveOption);
    const auto match = kForm.match(text);
    bool isNumber = false;
    const double number = match.captured(1).replace(',', '.').toDouble(&isNumber);
    if (!isNumber) return std::nullopt;
    if (match.hasCaptured(2)) return number / kMillimetersPerInch;
    if (match.hasCaptured(3)) return number * 10 / kMillimetersPerInch;
    return match.hasCaptured(4) ? number : number / UnitsPerInch();
}

}  // namespace

LengthUnit WindowUnit() {
    return QLocale().measurementSystem() == QLocale::ImperialUSSystem ? LengthUnit::Inches
                                                                      : LengthUnit::Millimeters;
}

void ShowWrong(QWidget& field, bool wrong) {
    QPalette palette;  // That of the application.
    // Dark enough for white paper, light enough for a dark theme.
    if (wrong) palette.setColor(QPalette::Text, QColor(0xE0, 0x4A, 0x4A));
    field.setPalette(palette);
}

LengthBox::LengthBox(const char* objectName, const QString& accessibleName, QWidget* parent)
    : QAbstractSpinBox(parent) {
    setObjectName(objectName);
    setAccessibleName(accessibleName);
    connect(lineEdit(), &QLineEdit::textEdited, this, &LengthBox::Read);
    connect(this, &QAbstractSpinBox::editingFinished, this, &LengthBox::Tidy);
    SetInches(0);
}

void LengthBox::SetInches(double inches) {
    inches_ = inches;
    lineEdit()->setText(TextOf(inches));
}

void LengthBox::Read(const QString& text) {
    inches_ = InchesIn(text);
    Q_EMIT Changed();
}

void LengthBox::Tidy() {
    if (inches_) SetInches(*inches_);
}

// A millimeter or a sixteenth of an inch, to whole ones.
void LengthBox::stepBy(int steps) {
    if (!inches_) return;
    const double perInch = WindowUnit() == LengthUnit::Inches ? 16 : kMillimetersPerInch;
    constexpr double kRounding = 1e-6;
    const double present = *inches_ * perInch;
    const double whole =
        steps > 0 ? std::floor(present + kRounding) : std::ceil(present - kRounding);
    SetInches((whole + steps) / perInch);
    Q_EMIT Changed();
}

QSize LengthBox::sizeHint() const {
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    const QSize text(fontMetrics().horizontalAdvance("0000.00 mm"),
                     lineEdit()->sizeHint().height());
    return style()->sizeFromContents(QStyle::CT_SpinBox, &option, text, this);
}

}  // namespace app
