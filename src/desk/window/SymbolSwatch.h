#pragma once

#include <QFrame>
#include <QImage>

#include "host/Host.h"

namespace desk {

/// Shows a symbol as the host draws it, on white paper: a text in its true size or as much smaller
/// as needed to fit.
class SymbolSwatch : public QFrame {
    Q_OBJECT

public:
    SymbolSwatch(host::IHost& host, QWidget* parent);

    void SetSymbol(host::Ref<host::IHostSymbol> symbol);
    /// The symbol has been edited.
    void Redraw();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// What the picture is, in words; it may have changed.
    void Described(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Draw(const QSize& pixels, double dotsPerInch);
    void DrawText(const host::IHostTextSymbol& symbol, const QSize& pixels, double dotsPerInch);
    std::string SampleText(const host::IHostTextSymbol& symbol) const;
    void DrawFill(const QSize& pixels, double dotsPerInch);
    host::Ref<host::IHostDisplayTransformation> Transformation(const QSize& pixels,
                                                               double dotsPerInch) const;
    void Paint(const host::Ref<host::IHostSymbol>& symbol,
               const host::Ref<host::IHostGeometry>& geometry, double dotsPerInch);

    host::IHost& host_;
    host::Ref<host::IHostSymbol> symbol_;
    std::string firstFamily_;  ///< Of a text, as it came.
    host::Ref<host::IHostPixelSurface> surface_;
    QImage picture_;
    QString described_;
};

}  // namespace desk
