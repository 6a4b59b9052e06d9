// A preview asks for its picture when it needs one, and shows it pixel by pixel.

#include <QApplication>
#include <QSignalSpy>
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
    void Answer() { preview_.SetPicture(Picture(preview_.PixelSize())); }
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
    const double ratio = qEnvironmentVariable("QT_SCALE_FACTOR", "1").toDouble();
    EXPECT_EQ(preview_.devicePixelRatioF(), ratio);
    EXPECT_EQ(preview_.PixelSize(), preview_.contentsRect().size() * ratio);
    EXPECT_EQ(preview_.DotsPerInch(), preview_.logicalDpiY() * ratio);
}

TEST_F(Previews, AskOnceForEachNeed) {
    const QColor background = preview_.palette().window().color();
    Answer();
    preview_.resize(300, 50);
    Settle();
    EXPECT_EQ(asked_.count(), 0) << "not on show";
    Show();
    EXPECT_EQ(asked_.count(), 1) << "the picture was made before the layout";
    preview_.repaint();
    Settle();
    EXPECT_EQ(asked_.count(), 1) << "nobody answered";
    Answer();
    Settle();
    EXPECT_EQ(asked_.count(), 1) << "the picture fits";
    preview_.resize(220, 44);
    Settle();
    EXPECT_EQ(asked_.count(), 2) << "another size";
    preview_.SetPicture(Picture({10, 10}));
    Settle();
    EXPECT_EQ(asked_.count(), 2) << "the answer was of a wrong size";
    preview_.Clear();
    Settle();
    EXPECT_EQ(asked_.count(), 3) << "cleared";
    EXPECT_EQ(Inner().pixelColor(5, 5), background);
}

TEST_F(Previews, ShowTheAnswerAndAreAnsweredOutsideThePainting) {
    QObject::connect(&preview_, &SymbolPreview::Paint, &preview_, [this] {
        EXPECT_FALSE(preview_.testAttribute(Qt::WA_WState_InPaintEvent));
        Answer();
    });
    Show();
    EXPECT_EQ(Inner(), Compared(Picture(preview_.PixelSize())));
    preview_.resize(260, 60);
    Settle();
    EXPECT_EQ(Inner(), Compared(Picture(preview_.PixelSize())));
    EXPECT_EQ(asked_.count(), 2);
    preview_.setEnabled(false);
    EXPECT_NE(Inner().pixelColor(1, 1), QColor(1, 1, 77)) << "it looks disabled";
}

}  // namespace
}  // namespace page_test
