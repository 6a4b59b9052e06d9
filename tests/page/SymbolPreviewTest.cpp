// A preview asks for its picture when it needs one, and shows it pixel by pixel.

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include "page/SymbolPreview.h"

namespace page_test {
namespace {

using gazetteer::SymbolPreview;

class Previews : public testing::Test {
public:
    Previews() { preview_.resize(200, 40); }

    void Show() {
        preview_.show();
        Settle();
    }
    static void Settle() {
        for (int i = 0; i < 5; ++i) QApplication::processEvents();
    }
    /// Each pixel in a colour that tells where it belongs.
    static QImage Picture(QSize size) {
        QImage picture(size, QImage::Format_ARGB32_Premultiplied);
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x)
                picture.setPixelColor(x, y, QColor(x % 256, y % 256, 77));
        return picture;
    }
    /// What is inside the frame, but for the last row and column: at some scales a style draws a
    /// line of the frame on them.
    QImage Inner() {
        const QPoint corner = preview_.contentsRect().topLeft() * preview_.devicePixelRatioF();
        const QImage all = preview_.grab().toImage();
        return Compared(all.copy(QRect(corner, preview_.PixelSize())));
    }
    static QImage Compared(const QImage& picture) {
        QImage compared = picture.copy(0, 0, picture.width() - 1, picture.height() - 1);
        compared.setDevicePixelRatio(1);
        return compared.convertToFormat(QImage::Format_RGB32);
    }

    SymbolPreview preview_;
    QSignalSpy asked_{&preview_, &SymbolPreview::Paint};
};

TEST_F(Previews, MeasureThePixelsOfTheScreen) {
    const double ratio = preview_.devicePixelRatioF();
    EXPECT_EQ(preview_.PixelSize(), preview_.contentsRect().size() * ratio);
    EXPECT_EQ(preview_.DotsPerInch(), preview_.logicalDpiY() * ratio);
    EXPECT_EQ(ratio, qEnvironmentVariable("QT_SCALE_FACTOR", "1").toDouble());
}

TEST_F(Previews, ShowTheWindowBackgroundUntilThereIsAPicture) {
    Show();
    EXPECT_EQ(Inner().pixelColor(5, 5), preview_.palette().window().color());
    preview_.SetPicture(Picture(preview_.PixelSize()));
    EXPECT_EQ(Inner(), Compared(Picture(preview_.PixelSize())));
    preview_.Clear();
    EXPECT_EQ(Inner().pixelColor(5, 5), preview_.palette().window().color());
}

TEST_F(Previews, AskOnceForEachNeed) {
    EXPECT_EQ(asked_.count(), 0);
    Show();
    EXPECT_EQ(asked_.count(), 1);
    preview_.repaint();
    Settle();
    EXPECT_EQ(asked_.count(), 1) << "nobody answered";

    preview_.SetPicture(Picture(preview_.PixelSize()));
    Settle();
    EXPECT_EQ(asked_.count(), 1) << "the picture fits";

    preview_.resize(220, 44);
    Settle();
    EXPECT_EQ(asked_.count(), 2) << "another size";
    preview_.SetPicture(Picture({10, 10}));
    Settle();
    EXPECT_EQ(asked_.count(), 2) << "the answer was of a wrong size";

    preview_.SetPicture(Picture(preview_.PixelSize()));
    preview_.Clear();
    Settle();
    EXPECT_EQ(asked_.count(), 3) << "cleared";
}

TEST_F(Previews, AskWhenAPictureMadeBeforeTheLayoutDoesNotFit) {
    preview_.SetPicture(Picture(preview_.PixelSize()));
    preview_.resize(300, 50);
    EXPECT_EQ(asked_.count(), 0) << "not on show";
    Show();
    EXPECT_EQ(asked_.count(), 1);
}

TEST_F(Previews, AreAnsweredOutsideThePainting) {
    QObject::connect(&preview_, &SymbolPreview::Paint, &preview_, [this] {
        EXPECT_FALSE(preview_.paintingActive());
        preview_.SetPicture(Picture(preview_.PixelSize()));
    });
    Show();
    preview_.resize(260, 60);
    Settle();
    EXPECT_EQ(Inner(), Compared(Picture(preview_.PixelSize())));
    EXPECT_EQ(asked_.count(), 2);
}

TEST_F(Previews, LookDisabledWhenTheyAre) {
    Show();
    preview_.SetPicture(Picture(preview_.PixelSize()));
    const QColor enabled = Inner().pixelColor(1, 1);
    preview_.setEnabled(false);
    EXPECT_NE(Inner().pixelColor(1, 1), enabled);
}

TEST_F(Previews, AreWideEnoughForALineOfText) {
    EXPECT_GE(preview_.minimumSizeHint().width(), 150);
    EXPECT_GE(preview_.minimumSizeHint().height(), 27);
    EXPECT_GE(preview_.sizeHint().height(), 40);
    EXPECT_GE(preview_.sizeHint().width(), 2 * preview_.sizeHint().height());
    EXPECT_EQ(preview_.focusPolicy(), Qt::NoFocus);
}

}  // namespace
}  // namespace page_test
