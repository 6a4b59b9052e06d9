// Texts of an index fitted in real fonts.
#include <gtest/gtest.h>

#include "layout/BothFits.h"
#include "layout/RandomTexts.h"
#include "support/TestDesk.h"

namespace {

TEST(TextFit, EqualsThePlainLoopsInRealFonts) {
    constexpr int kTexts = 3'000;
    constexpr const char* kFonts[] = {"Liberation Sans", "DejaVu Sans", "Noto Sans"};
    support::TestDesk desk;
    BothFits fits(desk);
    // What fonts kern, join and shape, so that a longer text may be the narrower one.
    RandomTexts source(20260101, "AV|fi|ffl|To|Y.|Wawaw|e\u0301te|القاهرة|لا|ירושלים|กรุงเทพ|दिल्ली");
    int wrapped = 0;
    for (int i = 0; i < kTexts && !testing::Test::HasFailure(); ++i) {
        const auto symbol = desk.TextSymbol(kFonts[i % 3], 6 + i % 7);
        const auto fitted = fits.Fit(source.Text(), source.Width(), symbol);
        wrapped += fitted.find('\n') != std::string::npos;
    }
    EXPECT_GT(wrapped, kTexts / 3);
}

}  // namespace
