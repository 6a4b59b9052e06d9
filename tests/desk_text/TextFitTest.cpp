// Texts of an index fitted in real fonts, on the desk's quick ways of measuring. The loops that
// they are held to measure full layouts.
#include <gtest/gtest.h>

#include "layout/BothFits.h"
#include "layout/RandomTexts.h"
#include "support/TestDesk.h"

namespace {

TEST(TextFit, EqualsThePlainLoopsOnFullLayouts) {
    constexpr int kTexts = 1'000;
    support::TestDesk quick;
    desk::DeskOptions plainSizes;
    plainSizes.textSizes = desk::TextEngine::Ways::Plain;
    support::TestDesk plain(plainSizes);
    BothFits fits(quick, plain);
    RandomTexts source(20260101);
    int wrapped = 0;
    for (int i = 0; i < kTexts && !testing::Test::HasFailure(); ++i) {
        const std::string text = source.Text();
        const double width = source.Width();
        for (const char* font : {"Liberation Sans", "DejaVu Serif", "Noto Sans"}) {
            const auto fitted = fits.Fit(text, width, quick.TextSymbol(font, 6 + i % 7),
                                         plain.TextSymbol(font, 6 + i % 7));
            wrapped += fitted.find('\n') != std::string::npos;
        }
    }
    EXPECT_GT(wrapped, kTexts);
}

}  // namespace
