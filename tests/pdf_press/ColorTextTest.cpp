#include <gtest/gtest.h>

#include "pdf/color/ColorText.h"

namespace {

struct Case {
    const char* text;
    std::uint32_t screen;         ///< 0xBBGGRR.
    const char* again = nullptr;  ///< Written again; null: as it was.
};

TEST(ColorText, IsReadAndWritten) {
    const Case cases[] = {
        {"#B00001", 0x0100B0},
        {"#ffffff", 0xFFFFFF, "#FFFFFF"},
        {"cmyk(0,100,80,10)", 0x2E00E6},
        {"cmyk( 0.5 , 100,33.3, 0 )", 0xAA00FE, "cmyk(0.5,100,33.3,0)"},
        {"cmyk(0,0,0,100)", 0},
        {"spot(Reflex Blue)", 0},
        {"spot(Reflex Blue, #000000)", 0, "spot(Reflex Blue)"},
        {"spot(Reflex Blue,#001489)", 0x891400, "spot(Reflex Blue, #001489)"},
        {"spot(Sølv 877/C, cmyk(100,80,0,5))", 0xF23000},
        {"spot(Reflex Blue, cmyk(100,80,0,5), #001489)", 0x891400},
    };
    for (const auto& each : cases) {
        const auto color = pdf::ParseColor(each.text);
        ASSERT_TRUE(color) << each.text;
        EXPECT_EQ(color->rgb, each.screen) << each.text;
        EXPECT_EQ(pdf::ColorText(*color), each.again ? each.again : each.text);
        EXPECT_EQ(pdf::ParseColor(pdf::ColorText(*color)), color);
    }
}

TEST(ColorText, OfAnotherFormIsNoColour) {
    for (const char* text : {"",
                             "#",
                             "#12345",
                             "#1234567",
                             "#12345G",
                             "# 12345",
                             "#+12345",
                             "red",
                             "cmyk",
                             "cmyk()",
                             "cmyk(1,2,3)",
                             "cmyk(1,2,3,4,5)",
                             "cmyk(1,2,3,101)",
                             "cmyk(-1,2,3,4)",
                             "cmyk(1,2,3,nan)",
                             "cmyk(1,2,3,4",
                             "cmyk(1,2,3,4) ",
                             "cmyk(1,2,,4)",
                             "CMYK(1,2,3,4)",
                             "spot()",
                             "spot( )",
                             "spot(All)",
                             "spot(None)",
                             "spot(Black)",
                             "spot(a(b))",
                             "spot(a#b)",
                             "spot(a\tb)",
                             "spot(Blue, )x",
                             "spot(Blue, red)",
                             "spot(Blue, cmyk(1,2,3))",
                             "spot(Blue, cmyk(1,2,3,4)",
                             "spot(Blue, cmyk(1,2,3,4) #000000)",
                             "spot(Blue, #000000, cmyk(1,2,3,4))"})
        EXPECT_FALSE(pdf::ParseColor(text)) << text;
    EXPECT_TRUE(pdf::ParseColor("spot(" + std::string(127, 'x') + ")"));
    EXPECT_FALSE(pdf::ParseColor("spot(" + std::string(128, 'x') + ")"));
}

}  // namespace
