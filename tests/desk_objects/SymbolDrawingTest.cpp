#include <gtest/gtest.h>

#include "desk/devices/Devices.h"
#include "desk/objects/Geometry.h"
#include "desk/objects/Symbols.h"
#include "desk/text/TextEngine.h"
#include "host/Failure.h"
#include "support/InkBox.h"

namespace {

using host::Failure;
using support::InkBox;

constexpr int kSide = 200;  ///< Pixels, and map units.

host::Ref<host::IHostGeometry> LineTo(double x1, double y1, double x2, double y2) {
    auto line = std::make_shared<desk::Line>();
    line->SetStartPoint(std::make_shared<desk::Point>(x1, y1));
    line->SetEndPoint(std::make_shared<desk::Point>(x2, y2));
    return line;
}

std::shared_ptr<desk::TextSymbol> Text(int horizontal, int vertical) {
    static const auto engine = std::make_shared<desk::TextEngine>();
    auto symbol = std::make_shared<desk::TextSymbol>(engine);
    symbol->Font()->SetName("DejaVu Sans");
    symbol->SetText("HHHH");
    symbol->SetHorizontalPlacement(horizontal);
    symbol->SetVerticalPlacement(vertical);
    return symbol;
}

std::shared_ptr<desk::DisplayTransformation> Whole() {
    auto transformation = std::make_shared<desk::DisplayTransformation>();
    transformation->SetShownExtent(std::make_shared<desk::Envelope>(0, 0, kSide, kSide));
    transformation->SetDeviceRectangle({0, 0, kSide, kSide});
    transformation->SetDotsPerInch(72);
    return transformation;
}

InkBox Draw(host::IHostSymbol& symbol, const host::Ref<host::IHostGeometry>& geometry,
            const host::Ref<host::IHostDisplayTransformation>& transformation = Whole()) {
    desk::PixelSurface surface(kSide, kSide, 72);
    symbol.PrepareDevice(surface.Device(), transformation);
    symbol.DrawGeometry(geometry);
    symbol.ReleaseDevice();
    const auto pixels = surface.Pixels();
    return support::FindInk(kSide, kSide, [&](int x, int y) {
        return pixels[static_cast<std::size_t>(y * kSide + x)] != 0;
    });
}

TEST(SymbolDrawing, HangsTextsOnALineByTheirPlacements) {
    const auto level = LineTo(20, 100, 180, 100);
    for (const int vertical : {0, 1, 2, 3}) {
        const InkBox centred = Draw(*Text(1, vertical), level);
        EXPECT_NEAR(Draw(*Text(0, vertical), level).left, 21, 1) << vertical;
        EXPECT_NEAR(centred.left + centred.right, 199, 2) << vertical;
        EXPECT_NEAR(Draw(*Text(2, vertical), level).right, 178, 1) << vertical;
    }
    EXPECT_GE(Draw(*Text(0, 0), level).top, 100);
    EXPECT_EQ(Draw(*Text(0, 2), level).bottom, 99);
    EXPECT_LT(Draw(*Text(0, 3), level).bottom, 99);

    const InkBox upward = Draw(*Text(0, 2), LineTo(100, 20, 100, 180));
    EXPECT_EQ(upward.right, 99);
    EXPECT_NEAR(upward.bottom, 178, 1);
    EXPECT_GT(upward.bottom - upward.top, 2 * (upward.right - upward.left));
}

TEST(SymbolDrawing, MapsTheShownExtentToTheDevicesRectangle) {
    const auto transformation = Whole();
    transformation->SetShownExtent(std::make_shared<desk::Envelope>(10, 10, 12, 14));
    transformation->SetDeviceRectangle({100, 40, 200, 80});
    transformation->SetDotsPerInch(300);
    desk::FillSymbol fill;
    const InkBox box = Draw(fill, std::make_shared<desk::Envelope>(11, 12, 12, 13), transformation);
    EXPECT_EQ(box, (InkBox{150, 50, 199, 59}));
}

TEST(SymbolDrawing, LeavesOutWhatIsTransparent) {
    const auto box = std::make_shared<desk::Envelope>(20, 20, 180, 180);
    desk::FillSymbol fill;
    fill.Color()->SetTransparent(true);
    EXPECT_EQ(Draw(fill, box).right, -1);
    fill.SetOutline(std::make_shared<desk::LineSymbol>());
    EXPECT_NEAR(Draw(fill, box).right, 180, 1);
    fill.Outline()->Color()->SetTransparent(true);
    EXPECT_EQ(Draw(fill, box).right, -1);
    const auto text = Text(0, 0);
    text->Color()->SetTransparent(true);
    EXPECT_EQ(Draw(*text, LineTo(0, 100, 200, 100)).right, -1);
}

TEST(SymbolDrawing, FailsWhereThereIsNothingToDrawOn) {
    desk::Devices devices;
    const desk::PixelSurface surface(10, 10, 72);
    const auto point = std::make_shared<desk::Point>();
    const auto box = std::make_shared<desk::Envelope>(0, 0, 9, 9);
    const auto drawn = [&](host::IHostSymbol& symbol, const host::Ref<host::IHostGeometry>& on) {
        symbol.PrepareDevice(surface.Device(), Whole());
        symbol.DrawGeometry(on);
    };
    desk::FillSymbol fill;
    desk::LineSymbol line;
    const auto flat = Whole();
    flat->SetShownExtent(std::make_shared<desk::Envelope>(0, 5, 9, 5));
    const host::Brush brush = devices.CreateSolidBrush(0);
    EXPECT_THROW(fill.DrawGeometry(box), Failure);
    EXPECT_THROW(drawn(fill, point), Failure);
    EXPECT_THROW(drawn(line, nullptr), Failure);
    EXPECT_THROW(drawn(*Text(0, 0), box), Failure);
    EXPECT_THROW(fill.PrepareDevice(surface.Device(), nullptr), Failure);
    EXPECT_THROW(fill.PrepareDevice(surface.Device(), flat), Failure);
    EXPECT_THROW(fill.PrepareDevice(1, Whole()), Failure);
    EXPECT_THROW(devices.FillRect(surface.Device(), {}, brush + 1), Failure);
    EXPECT_THROW(devices.GetDeviceCaps(1, host::kLogicalPixelsY), Failure);
    EXPECT_THROW(desk::PixelSurface(0, 10, 72), Failure);
    EXPECT_THROW(desk::PixelSurface(10, 40000, 72), Failure);
    EXPECT_THROW(desk::PixelSurface(10, 10, 0), Failure);
    fill.ReleaseDevice();
    EXPECT_THROW(fill.DrawGeometry(box), Failure);
}

}  // namespace
