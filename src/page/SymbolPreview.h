#pragma once

#include <QFrame>
#include <QImage>

namespace gazetteer {

/// A sunken area with a picture of a symbol. Emits Paint when it needs one of its current size.
class SymbolPreview final : public QFrame {
    Q_OBJECT

public:
    explicit SymbolPreview(QWidget* parent = nullptr);

    /// Size inside the frame, in device pixels. It is final once the area has been shown; Paint is
    /// emitted again if it changes.
    QSize PixelSize() const;
    /// Device pixels per inch of the screen.
    double DotsPerInch() const;

    /// Shows a picture 1:1 from the upper left corner; ignores its own resolution.
    void SetPicture(const QImage& picture);
    /// Shows the window background. The next paint event requests a picture again.
    void Clear();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// Requests a picture of PixelSize. Emitted from the event loop, never during painting, and
    /// once per size and resolution, so that a receiver without a picture is not asked repeatedly.
    void Paint();

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool Fits(const QImage& picture) const;
    void RequestPicture();

    QImage picture_;   ///< Has the resolution of the screen at the time it was set.
    QSize requested_;  ///< Size of the last request; null if the next need is a new request.
};

}  // namespace gazetteer
