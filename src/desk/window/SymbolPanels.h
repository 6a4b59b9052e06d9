#pragma once

#include <QColor>
#include <QPushButton>
#include <QWidget>
#include <cstdint>

#include "host/Host.h"

class QCheckBox;
class QDoubleSpinBox;
class QFontComboBox;
class QLabel;

namespace desk {

/// A button that shows a colour and opens a colour dialog.
class ColorButton : public QPushButton {
    Q_OBJECT

public:
    explicit ColorButton(QWidget* parent);

    /// 0xBBGGRR.
    std::uint32_t Rgb() const;
    void SetRgb(std::uint32_t rgb);

Q_SIGNALS:
    void Picked();

protected:
    void changeEvent(QEvent* event) override;

private:
    void Pick();
    void ShowColor();

    QColor color_ = Qt::black;
};

// The panels edit the symbol in place and write only the properties that the user changes, so that
// a value that a control cannot show is kept.

/// Font, size, weight and colour of a text symbol.
class TextSymbolPanel : public QWidget {
    Q_OBJECT

public:
    TextSymbolPanel(host::Ref<host::IHostTextSymbol> symbol, QWidget* parent);

Q_SIGNALS:
    void Edited();

private:
    void Fill();
    void ConnectSignals();
    void SetFamily(const QString& family);
    void UpdateNote();

    host::Ref<host::IHostTextSymbol> symbol_;
    QString firstFamily_;  ///< The symbol's initial font family.
    QFontComboBox* family_;
    QDoubleSpinBox* size_;
    QCheckBox* bold_;
    QCheckBox* italic_;
    ColorButton* color_;
    QLabel* note_;
};

/// Colour and outline of a fill symbol.
class FillSymbolPanel : public QWidget {
    Q_OBJECT

public:
    FillSymbolPanel(host::IHost& host, host::Ref<host::IHostFillSymbol> symbol, QWidget* parent);

Q_SIGNALS:
    void Edited();

private:
    void Fill();
    void SetFilled(bool filled);
    void SetFillColor();
    void SetOutlined(bool outlined);
    void SetOutlineColor();

    host::IHost& host_;
    host::Ref<host::IHostFillSymbol> symbol_;
    host::Ref<host::IHostLineSymbol> lastOutline_;
    QCheckBox* filled_;
    ColorButton* color_;
    QCheckBox* outlined_;
    ColorButton* outlineColor_;
};

}  // namespace desk
