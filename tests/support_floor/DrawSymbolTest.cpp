#include <algorithm>
#include <array>
#include <gtest/gtest.h>

#include "support/TestDesk.h"
#include "support/basDrawSymbol.h"

namespace {

using Symbol = host::Ref<host::IHostSymbol>;

constexpr std::uint32_t kWhite = 0xFFFFFFFF;

/// Keeps what it is asked to draw, and fails where it is told to.
class Probe final : public host::IHostMarkerSymbol {
public:
    explicit Probe(std::string failing = {}) : failing_(std::move(failing)) {}

    void PrepareDevice(host::DeviceContext,
                       const host::Ref<host::IHostDisplayTransformation>&) override {
        Note("prepare");
    }
    void DrawGeometry(const host::Ref<host::IHostGeometry>& geometry) override {
        drawn = geometry;
        Note("draw");
    }
    void ReleaseDevice() override { Note("release"); }
    host::Ref<host::IHostObject> Copy() const override { return nullptr; }

    std::string calls;
    host::Ref<host::IHostGeometry> drawn;

private:
    void Note(const std::string& call) {
        calls += call + ' ';
        if (call == failing_) throw host::Failure(-7, "Probe", "The symbol is broken.");
    }

    std::string failing_;
};

class DrawSymbol : public ::testing::Test {
protected:
    DrawSymbol() { Use(113, 81, 96); }

    void Use(int width, int height, double dotsPerInch) {
        surface_ = desk_.Host().NewPixelSurface(width, height, dotsPerInch);
    }
    bool Draw(const Symbol& symbol, int gap = 0) {
        return gazetteer::DrawToDC(desk_.Host(), surface_->Device(), surface_->Width(),
                                   surface_->Height(), symbol, gap);
    }
    std::uint32_t At(int x, int y) const {
        return surface_->Pixels()[static_cast<std::size_t>(y * surface_->Width() + x)];
    }
    /// The smallest box around what is not white; {first x, first y, last x, last y}.
    std::array<int, 4> Ink() const {
        std::array<int, 4> box{1 << 20, 1 << 20, -1, -1};
        for (int y = 0; y < surface_->Height(); ++y)
            for (int x = 0; x < surface_->Width(); ++x)
                if (At(x, y) != kWhite)
                    box = {std::min(box[0], x), std::min(box[1], y), std::max(box[2], x),
                           std::max(box[3], y)};
        return box;
    }
    host::Ref<host::IHostTextSymbol> Text(const char* text, int vertical = 1) {
        auto symbol = desk_.TextSymbol("DejaVu Sans", 10);
        symbol->SetText(text);
        symbol->SetVerticalPlacement(vertical);
        return symbol;
    }

    support::TestDesk desk_;
    host::Ref<host::IHostPixelSurface> surface_;
};

TEST_F(DrawSymbol, FillsTheUpperHalf) {
    const auto fill = desk_.Host().NewFillSymbol();
    fill->Color()->SetRGB(0x0000C8);
    ASSERT_TRUE(Draw(fill));
    const int half = At(0, 40) == kWhite ? 40 : 41;  // The edge goes through this row.
    for (int x = 0; x < 113; ++x)
        for (int y = 0; y < 81; ++y)
            ASSERT_EQ(At(x, y), y < half ? 0xFFC80000 : kWhite) << x << ", " << y;

    fill->Color()->SetTransparent(true);
    ASSERT_TRUE(Draw(fill));
    EXPECT_EQ(Ink()[2], -1) << "a preview shows what was there before";
}

TEST_F(DrawSymbol, DrawsTextsAndLinesOnTheMiddle) {
    ASSERT_TRUE(Draw(Text("Main St")));
    const auto middle = Ink();
    EXPECT_NEAR(middle[1] + middle[3], 81, 8);
    EXPECT_LE(middle[0], 4);
    EXPECT_NEAR(middle[3] - middle[1], 10, 3);

    ASSERT_TRUE(Draw(desk_.Host().NewLineSymbol()));
    const auto line = Ink();
    EXPECT_EQ(line[0], 0);
    EXPECT_EQ(line[2], 112);
    EXPECT_NEAR(line[1], 40, 1);
    EXPECT_NEAR(line[3], 40, 1);

    ASSERT_TRUE(Draw(Text("HHH", 2)));
    const auto once = Ink();
    EXPECT_NEAR(once[3], 40, 1) << "letters stand on the line";
    Use(226, 162, 192);
    ASSERT_TRUE(Draw(Text("HHH", 2)));
    const auto twice = Ink();
    EXPECT_NEAR(twice[3] - twice[1], 2 * (once[3] - once[1]), 3);
    EXPECT_NEAR(twice[2] - twice[0], 2 * (once[2] - once[0]), 3);
}

TEST_F(DrawSymbol, GivesAMarkerTheMiddle) {
    const auto marker = std::make_shared<Probe>();
    ASSERT_TRUE(Draw(marker, 5));
    EXPECT_EQ(marker->calls, "prepare draw release ");
    const auto point = host::As<host::IHostPoint>(marker->drawn);
    ASSERT_TRUE(point);
    EXPECT_EQ(point->X(), 56.5);
    EXPECT_EQ(point->Y(), 57);
}

TEST_F(DrawSymbol, TellsOfEveryFailureOnce) {
    const auto coarse = desk_.Host().NewPixelSurface(9, 9, 0.4);
    const auto gone = desk_.Host().NewPixelSurface(9, 9, 96)->Device();
    const auto undrawable = std::make_shared<Probe>("draw");
    const struct {
        host::DeviceContext device;
        Symbol symbol;
        const char* number;
        const char* cause;
    } cases[] = {
        {gone, Text("A"), "-2147214502", "Could not clear the Device Context."},
        {coarse->Device(), Text("A"), "-2147214496",
         "Could not create required Transformation or Geometry for this draw operation."},
        {surface_->Device(), std::make_shared<Probe>("prepare"), "-7", "The symbol is broken."},
        {surface_->Device(), undrawable, "-7", "The symbol is broken."},
        {surface_->Device(), nullptr, "-2147352571", "Type mismatch"},
    };
    for (const auto& one : cases) {
        desk_.Dialogs().messages.clear();
        EXPECT_FALSE(gazetteer::DrawToDC(desk_.Host(), one.device, 9, 9, one.symbol, 0));
        ASSERT_EQ(desk_.Dialogs().messages.size(), 1U) << one.cause;
        const auto& text = desk_.Dialogs().messages[0].text;
        EXPECT_NE(text.find(one.cause), std::string::npos) << text;
        EXPECT_NE(text.find(std::string("\t") + one.number + "\r\n"), std::string::npos) << text;
        EXPECT_NE(text.find("\tDrawToDC CVNGazetteer:basDrawSymbol "), std::string::npos) << text;
    }
    EXPECT_EQ(undrawable->calls, "prepare draw release ") << "the device is freed all the same";
    desk_.Dialogs().messages.clear();
    EXPECT_FALSE(gazetteer::DrawToDC(desk_.Host(), 0, 113, 81, Text("A"), 0));
    EXPECT_TRUE(desk_.Dialogs().messages.empty()) << "no device is no failure";
}

}  // namespace
