#pragma once

#include <QAbstractSpinBox>
#include <optional>

#include "app/document/SheetSizes.h"

namespace app {

/// The unit of lengths in the window: inches where the user's locale is that of the United States,
/// else millimeters, which also Britain prints in.
LengthUnit WindowUnit();

/// Shows the text of a field in a colour that says that it is wrong, or in the usual one.
void ShowWrong(QWidget& field, bool wrong);

/// A length with its unit, in that of the window. Other units can be typed: "63 mm", "2.5 in". A
/// text that is no length stays; the box then has no value.
class LengthBox : public QAbstractSpinBox {
    Q_OBJECT

public:
    LengthBox(const char* objectName, const QString& accessibleName, QWidget* parent);

    /// Exact as long as the user does not edit the text. Nothing while the text is no length.
    std::optional<double> Inches() const { return inches_; }
    void SetInches(double inches);

    void stepBy(int steps) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void Changed();

protected:
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }

private:
    void Read(const QString& text);
    void Tidy();

    std::optional<double> inches_ = 0;
};

}  // namespace app
