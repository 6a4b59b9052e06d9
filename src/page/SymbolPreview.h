#pragma once

#include <QFrame>
#include <QImage>

namespace gazetteer {

/// A sunken area that shows a picture of a symbol. The program paints the picture; the area asks
/// for it with Paint when there is none, or when it no longer fits the area's pixels.
class SymbolPreview final : public QFrame {
    Q_OBJECT

public:
    explicit SymbolPreview(QWidget* parent = nullptr);

    /// Size of the area inside the frame, in pixels of the device. It is final once the area has
    /// been shown; a picture for an earlier size is asked for again.
    QSize PixelSize() const;
    /// Pixels of the device per inch of the screen.
    double DotsPerInch() const;

    /// Shows a picture, pixel by pixel from the upper left corner. Its own resolution is ignored.
    void SetPicture(const QImage& picture);
    /// Shows the window background. The next painting asks for a picture again.
    void Clear();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// A picture of PixelSize is needed. Sent from the event loop and never while the area is being
    /// painted, and once for each size and resolution: who cannot serve it is not asked in vain.
    void Paint();

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool Fits(const QImage& picture) const;
    void Ask();

    QImage picture_;  ///< With the resolution of the screen that it was set on.
    QSize askedFor_;  ///< What the last Paint was for; null when the next need is a new one.
};

}  // namespace gazetteer
