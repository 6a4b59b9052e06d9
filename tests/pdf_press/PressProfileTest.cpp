#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

#include "pdf/color/PressProfile.h"
#include "pdf/file/Output.h"

namespace {

std::string Bytes(const std::string& profile) {
    std::ifstream file(PROFILES "/" + profile, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(PressProfile, PrintsNeutralColoursWithBlackAloneAndTheDarkerTheMore) {
    const pdf::PressProfile press(Bytes("default_cmyk.icc"));
    EXPECT_EQ(press.Convert(0), (pdf::Cmyk{0, 0, 0, 1}));
    EXPECT_EQ(press.Convert(0xFFFFFF), (pdf::Cmyk{0, 0, 0, 0}));
    double lighter = 1;
    for (std::uint32_t gray = 1; gray < 0xFF; ++gray) {
        const auto inks = press.Convert(gray * 0x010101);
        EXPECT_EQ(inks, (pdf::Cmyk{0, 0, 0, inks.black}));
        EXPECT_LT(inks.black, lighter) << gray;
        lighter = inks.black;
    }
    EXPECT_EQ(pdf::PressProfile(press.Bytes() + "not of it").Bytes(), press.Bytes());
    // On this press half the ink is darker than half a screen's value.
    EXPECT_NEAR(press.Convert(0x808080).black, 0.5, 0.15);
}

TEST(PressProfile, OfAnythingElseIsRefused) {
    for (const auto& [bytes, why] : {std::pair{std::string(), "it is no ICC profile"},
                                     {Bytes("default_cmyk.icc").substr(0, 90), "no ICC profile"},
                                     {Bytes("srgb.icc"), "no profile of a press"},
                                     {Bytes("default_gray.icc"), "no profile of a press"},
                                     {Bytes("lab.icc"), "no profile of a press"}}) {
        try {
            const pdf::PressProfile press(bytes);
            FAIL() << why;
        } catch (const pdf::Error& error) {
            EXPECT_NE(std::string(error.what()).find(why), std::string::npos) << error.what();
        }
    }
}

}  // namespace
