// A preview asks for its picture when it needs one, and shows it pixel by pixel.

#include <QApplication>
#include <QSignalSpy>
#include <functional>
#include <gtest/gtest.h>
#include <tuple>

#include "page/SymbolPreview.h"

namespace page_test {
namespace {

using gazetteer::SymbolPreview;

class Previews : public testing::Test {
public:
    Previews() { preview_.resize(200, 40); }

    static void Settle() {
        for (int i = 0; i < 5; ++i) QApplication::processEvents();
    }
    /// Each pixel in a colour that tells where it belongs.
    static QImage Picture(QSize size) {
        QImage picture(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x)
                picture.setPixelColor(x, y, QColor(x % 256, y % 256, 77));
        return picture;
    }
    void Answer() { preview_.SetPicture(Picture(preview_.PixelSize())); }
    /// A pixel inside the frame.
    QColor At(const QPoint& place) {
        const QPoint corner = preview_.contentsRect().topLeft() * preview_.devicePixelRatioF();
        return preview_.grab().toImage().pixelColor(corner + place);
    }

    SymbolPreview preview_;
    QSignalSpy asked_{&preview_, &SymbolPreview::Paint};
};

TEST_F(Previews, AskOnceForEachNeed) {
    Answer();
    preview_.resize(300, 50);
    Settle();
    EXPECT_EQ(asked_.count(), 0) << "not on show";
    preview_.show();
    const std::tuple<const char*, int, std::function<void()>> needs[] = {
        {"the picture was made before the layout", 1, [] {}},
        {"nobody answered", 1, [this] { preview_.repaint(); }},
        {"the picture fits", 1, [this] { Answer(); }},
        {"another size", 2, [this] { preview_.resize(220, 44); }},
        {"the answer is of a wrong size", 2,
         [this] {
             preview_.SetPicture(Picture({10, 10}));
         }},
        {"cleared", 3, [this] { preview_.Clear(); }}};
    for (const auto& [what, asked, act] : needs) {
        act();
        Settle();
        EXPECT_EQ(asked_.count(), asked) << what;
    }
    EXPECT_EQ(At({5, 5}), preview_.palette().window().color());
}

TEST_F(Previews, ShowTheAnswerPixelByPixelOfTheScreen) {
    const double ratio = qEnvironmentVariable("QT_SCALE_FACTOR", "1").toDouble();
    EXPECT_EQ(preview_.DotsPerInch(), preview_.logicalDpiY() * ratio);
    QObject::connect(&preview_, &SymbolPreview::Paint, &preview_, [this] {
        EXPECT_FALSE(preview_.testAttribute(Qt::WA_WState_InPaintEvent));
        Answer();
    });
    preview_.show();
    for (const QSize size : {QSize(200, 40), QSize(260, 60)}) {
        preview_.resize(size);
        Settle();
        const QSize pixels = preview_.PixelSize();
        EXPECT_EQ(pixels, preview_.contentsRect().size() * ratio);
        // Not in the last row and column: at some scales a style draws a line of the frame there.
        for (const QPoint place : {QPoint(0, 0), QPoint(pixels.width() - 2, pixels.height() - 2)})
            EXPECT_EQ(At(place), Picture(pixels).pixelColor(place));
    }
    EXPECT_EQ(asked_.count(), 2);
    preview_.setEnabled(false);
    EXPECT_NE(At({1, 1}), QColor(1, 1, 77)) << "it looks disabled";
}

}  // namespace
}  // namespace page_test
