#include "Plates.h"

namespace tests {
namespace {

constexpr char kProfile[] = PROFILES "/default_cmyk.icc";
constexpr const char* kProcess[] = {"Cyan", "Magenta", "Yellow", "Black"};

/// What each of the plates carries at most, and the plate of a spot colour if there is one.
struct Carried {
    const char* color;  ///< Of all texts.
    int most[4];
    const char* spot = nullptr;
};

class PlatesTest : public ::testing::Test {
protected:
    /// Makes an index in which all texts have one colour, on paper or on a ground.
    Plates Make(const std::string& color, const std::string& ground = "#FFFFFF",
                std::vector<std::string> more = {"--press", kProfile}) {
        std::vector<std::string> arguments{"make",           "streets.dbf", "-o",     "o.pdf",
                                           "--page-size",    "4x6",         "--head", "",
                                           "--sheet-number", "false"};
        for (const char* text : {"Column", "Title", "Break"})
            for (const std::string& part :
                 {std::string("--set"),
                  "*." + std::string(text) + "FontSymbol=Liberation Sans,14," + color})
                arguments.push_back(part);
        for (const char* background : {"Background", "TitleBackground"})
            for (const std::string& part :
                 {std::string("--set"), "*." + std::string(background) + "Symbol=" + ground})
                arguments.push_back(part);
        arguments.insert(arguments.end(), more.begin(), more.end());
        program_.Done(arguments);
        return {program_, "o.pdf"};
    }

    Program program_;
};

TEST_F(PlatesTest, CarryTheInksOfTexts) {
    const Carried cases[] = {
        {"#000000", {0, 0, 0, 255}},
        {"cmyk(0,0,0,100)", {0, 0, 0, 255}},
        {"cmyk(0,100,80,10)", {0, 255, 204, 26}},
        {"cmyk(33.4,0,0,0)", {85, 0, 0, 0}},
        {"spot(Reflex Blue, cmyk(100,80,0,5))", {0, 0, 0, 0}, "Reflex Blue"},
        {"spot(Sølv 877)", {0, 0, 0, 0}, "S%C3%B8lv 877"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.color);
        const Plates plates = Make(each.color);
        for (int i = 0; i < 4; ++i)
            EXPECT_NEAR(plates.Of(kProcess[i]).Most(), each.most[i], 1) << kProcess[i];
        if (each.spot) {
            EXPECT_EQ(plates.Of(each.spot).Most(), 255);
        }
        EXPECT_EQ(program_.Shell("qpdf --check o.pdf >check.txt 2>&1 && echo sound"), "sound\n");
    }
}

// The paper would show around letters where a plate is off.
TEST_F(PlatesTest, BlackTextLeavesTheGroundBelowItWhole) {
    const auto ground = [&](const char* text) {
        const Plate cyan = Make(text, "cmyk(40,0,0,0)").Of("Cyan");
        EXPECT_EQ(cyan.Most(), 102);
        return cyan.Count(102);
    };
    const auto whole = ground("cmyk(40,0,0,0)");
    EXPECT_EQ(ground("#000000"), whole);
    EXPECT_LT(ground("#808080"), whole);
    EXPECT_LT(ground("cmyk(0,100,0,0)"), whole);
}

// Ghostscript converts with the same profile what has the colours of a screen.
TEST_F(PlatesTest, CarryWhatComesClosestToTheScreen) {
    for (const char* color : {"#B00000", "#FFCC00", "#0050A0", "#A8D8B0"}) {
        const Plates ours = Make("#000000", color);
        int inks[4];
        for (int i = 0; i < 4; ++i) inks[i] = ours.Of(kProcess[i]).At(60, 200);
        const Plates theirs = Make("#000000", color, {});
        for (int i = 0; i < 4; ++i)
            EXPECT_NEAR(inks[i], theirs.Of(kProcess[i]).At(60, 200), 1) << color << kProcess[i];
    }
}

TEST_F(PlatesTest, HaveCropMarksOutsideTheBleed) {
    const Plates plates =
        Make("spot(Gold)", "#FFFFFF", {"--press", kProfile, "--bleed", "20mm", "--crop-marks"});
    for (const char* ink : {"Cyan", "Magenta", "Yellow", "Black", "Gold"}) {
        const Plate plate = plates.Of(ink);
        ASSERT_TRUE(plate.Exists()) << ink;
        const int bleed = 72 * 20 / 25;
        const int edge = bleed + 15;  // The marks are 15 points long.
        const auto row = [&](int y, int from, int to) {
            int most = 0;
            for (int x = from; x < to; ++x) most = std::max(most, plate.At(x, y));
            return most;
        };
        int marks = 0;
        for (int y = edge - 2; y <= edge + 2; ++y) marks = std::max(marks, row(y, 0, 13));
        EXPECT_EQ(marks, 255) << ink;
        for (int y = edge - 2; y <= edge + 2; ++y) EXPECT_EQ(row(y, 17, edge), 0) << ink;
    }
}

// Readers of files for archives ask for the colours of one kind of device.
TEST_F(PlatesTest, AreOfNoConcernToOtherFiles) {
    Make("spot(Gold, #C0A000)", "cmyk(40,0,0,0)", {});
    const std::string file = program_.Shell("qpdf --qdf --object-streams=disable o.pdf -");
    EXPECT_TRUE(Contains(file, "\n.752941 .627451 0 rg\n"));
    EXPECT_TRUE(Contains(file, "\n.6 1 1 rg\n"));
    for (const char* part : {"/Separation", "/DeviceCMYK", "/ExtGState", "/TrimBox"})
        EXPECT_EQ(file.find(part), std::string::npos) << part;
}

}  // namespace
}  // namespace tests
