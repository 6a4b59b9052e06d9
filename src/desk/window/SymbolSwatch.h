#pragma once

#include <QFrame>
#include <QImage>

#include "host/Host.h"

namespace desk {

/// Shows a symbol as the host draws it, on white. A text has its true size, or is reduced to fit.
class SymbolSwatch : public QFrame {
    Q_OBJECT

public:
    SymbolSwatch(host::IHost& host, QWidget* parent);

    void SetSymbol(host::Ref<host::IHostSymbol> symbol);
    /// Call after the symbol was edited.
    void Redraw();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Emits the caption of the picture, which may have changed.
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
    std::string firstFamily_;  ///< Initial font family of a text symbol.
    host::Ref<host::IHostPixelSurface> surface_;
    QImage picture_;
    QString described_;
};

}  // namespace desk
