#include <gtest/gtest.h>
#include <sstream>

#include "support/SmallHost.h"
#include "support/basDrawSymbol.h"

namespace {

constexpr host::DeviceContext kDevice = 7;

/// A host that notes what is painted, and lets the call fail that it is told.
class Painting final : public texthost::TextHost, public host::IHostDevices {
public:
    host::IHostDevices& Devices() override { return *this; }
    host::IHostDialogs& Dialogs() override { return dialogs; }
    host::Ref<host::IHostLine> NewLine() override {
        Note("line");
        return TextHost::NewLine();
    }

    host::Brush CreateSolidBrush(std::uint32_t color) override {
        Note("brush", color);
        return brush;
    }
    void FillRect(host::DeviceContext device, const host::PixelRectangle& area,
                  host::Brush with) override {
        Note("fill", device, area.left, area.top, area.right, area.bottom, with);
    }
    void DeleteObject(host::Brush gone) override { Note("delete", gone); }
    std::int32_t GetDeviceCaps(host::DeviceContext, std::int32_t index) override {
        return index == host::kLogicalPixelsY ? dotsPerInch : 0;
    }

    template <class... Values>
    void Note(const std::string& call, Values... values) {
        std::ostringstream text;
        ((text << ' ' << values), ...);
        calls += call + text.str() + '\n';
        if (call == failing) throw host::Failure(-7, "Painting", "The " + call + " is broken.");
    }

    support::RecordingDialogs dialogs;
    std::string calls;
    std::string failing;
    host::Brush brush = 3;
    std::int32_t dotsPerInch = 96;
};

std::string Corners(const host::IHostEnvelope& box) {
    std::ostringstream text;
    text << box.XMin() << ' ' << box.YMin() << ' ' << box.XMax() << ' ' << box.YMax();
    return text.str();
}

template <class Kind>
class Probe final : public Kind {
public:
    explicit Probe(Painting& painting) : painting_(painting) {}
    host::Ref<host::IHostObject> Copy() const override { return nullptr; }
    void PrepareDevice(host::DeviceContext device,
                       const host::Ref<host::IHostDisplayTransformation>& to) override {
        const auto pixels = to->DeviceRectangle();
        for (const auto& extent : {to->ShownExtent(), to->FullExtent()})
            EXPECT_EQ(Corners(*extent), "0 0 113 81");
        painting_.Note("prepare", device, pixels.left, pixels.top, pixels.right, pixels.bottom,
                       to->DotsPerInch());
    }
    void DrawGeometry(const host::Ref<host::IHostGeometry>& geometry) override {
        const bool isLine = host::As<host::IHostLine>(geometry) != nullptr;
        painting_.Note("draw", isLine ? "line" : "", Corners(*geometry->Bounds()));
    }
    void ReleaseDevice() override { painting_.Note("release"); }

private:
    Painting& painting_;
};

constexpr char kCleared[] = "brush 16777215\nfill 7 0 0 113 81 3\ndelete 3\n";
constexpr char kPrepared[] = "prepare 7 0 0 113 81 96\n";

class DrawSymbol : public ::testing::Test {
protected:
    bool Draw(const host::Ref<host::IHostSymbol>& symbol, host::DeviceContext device = kDevice) {
        painting.calls.clear();
        return gazetteer::DrawToDC(painting, device, 113, 81, symbol, 5);
    }
    template <class Kind>
    host::Ref<host::IHostSymbol> New() {
        return std::make_shared<Probe<Kind>>(painting);
    }
    Painting painting;
};

TEST_F(DrawSymbol, EachKindHasItsPlaceOnAWhiteGround) {
    const std::tuple<host::Ref<host::IHostSymbol>, const char*, const char*> cases[] = {
        {New<texthost::FillSymbol>(), "", "draw  5 38 108 76\n"},
        {New<texthost::LineSymbol>(), "line\n", "draw line 5 38 108 38\n"},
        {New<texthost::TextSymbol>(), "line\n", "draw line 5 38 108 38\n"},
        {New<host::IHostMarkerSymbol>(), "", "draw  56.5 57 56.5 57\n"},
    };
    for (const auto& [symbol, made, drawn] : cases) {
        EXPECT_TRUE(Draw(symbol));
        EXPECT_EQ(painting.calls, std::string(kCleared) + made + kPrepared + drawn + "release\n");
    }
    EXPECT_FALSE(Draw(New<texthost::FillSymbol>(), 0)) << "no device is no failure";
    EXPECT_EQ(painting.calls, "");
    EXPECT_TRUE(painting.dialogs.messages.empty());
}

TEST_F(DrawSymbol, TellsOfEveryFailureOnceAndFreesWhatItTook) {
    const char* const notCleared = "\t-2147214502\r\nDescription\r\n\tCould not clear the Device";
    const char* const noMeans = "\t-2147214496\r\nDescription\r\n\tCould not create required";
    const std::string cleared = kCleared;
    const std::string line = cleared + "line\n";
    const std::string drawn = line + kPrepared + "draw line 5 38 108 38\nrelease\n";
    const std::tuple<const char*, host::Brush, std::int32_t, bool, const char*, std::string>
        cases[] = {
            {"", 0, 96, true, notCleared, "brush 16777215\n"},
            {"fill", 3, 96, true, notCleared, cleared},
            {"delete", 3, 96, true, notCleared, cleared},
            {"", 3, 0, true, noMeans, line},
            {"line", 3, 96, true, noMeans, line},
            {"prepare", 3, 96, true, "\t-7\r\nDescription\r\n\tThe prepare is broken",
             line + kPrepared},
            {"draw", 3, 96, true, "\t-7\r\nDescription\r\n\tThe draw is broken", drawn},
            {"", 3, 96, false, "\t-2147352571\r\nDescription\r\n\tType mismatch", cleared},
        };
    for (const auto& [failing, brush, dotsPerInch, symbol, told, calls] : cases) {
        painting.failing = failing;
        painting.brush = brush;
        painting.dotsPerInch = dotsPerInch;
        painting.dialogs.messages.clear();
        EXPECT_FALSE(Draw(symbol ? New<texthost::TextSymbol>() : nullptr));
        ASSERT_EQ(painting.dialogs.messages.size(), 1U) << told;
        const auto& text = painting.dialogs.messages[0].text;
        EXPECT_NE(text.find(told), std::string::npos) << text;
        EXPECT_NE(text.find("\tDrawToDC CVNGazetteer:basDrawSymbol "), std::string::npos) << text;
        EXPECT_EQ(painting.calls, calls) << told;
    }
}

}  // namespace
