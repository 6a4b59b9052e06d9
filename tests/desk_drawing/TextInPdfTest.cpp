// Texts of a PDF as its readers find them again.
#include <cmath>
#include <regex>

#include "Sheet.h"

namespace {

using sheet::Look;
using sheet::Output;
using sheet::Sheets;

TEST(TextInPdf, ComesBackAsItWasWritten) {
    const char* const texts[] = {
        "Abbey Road..........4, B-3",
        "Affiliated Office Cliff......12",
        "Österåker, Łódź, Çeşme, Đà Nẵng",
        "Αθήνα μικρή Ωκεανός",
        "Москва и Київ",
        "Москва......B-3",
        "北京市海淀区",
        "東京 Tokyo 12",
        "50 µm – “dash” – ½ €",
        "e\u0301tude",
    };
    for (const char* family : {"DejaVu Sans", "Helvetica", "Noto Sans"}) {
        Sheets sheets;
        std::vector<host::Ref<host::IHostElement>> rows;
        double y = 3.6;
        for (const char* text : texts)
            rows.push_back(sheets.elements.Text(0.2, y -= 0.3, text, family));
        const std::string path = sheets.Draw("texts.pdf", sheets.elements.Group(rows));
        const std::string found = Output("pdftotext -layout '" + path + "' -");
        for (const char* text : texts)
            EXPECT_NE(found.find(text), std::string::npos) << text << " in\n" << found;
    }
}

TEST(TextInPdf, RightToLeftWordsComeBackInReadingOrder) {
    Sheets sheets;
    const auto& e = sheets.elements;
    const std::string path =
        sheets.Draw("right.pdf", e.Group({e.Text(0.2, 3, "القاهرة"), e.Text(0.2, 2, "ירושלים"),
                                          e.Text(0.2, 1, "مكة المكرمة.......4, B-3")}));
    const std::string found = Output("pdftotext '" + path + "' -");
    for (const char* word : {"القاهرة", "ירושלים", "مكة", "المكرمة", "B-3"})
        EXPECT_NE(found.find(word), std::string::npos) << word << " in\n" << found;
}

TEST(TextInPdf, FontsAreEmbeddedSubsets) {
    Sheets sheets;
    const auto& e = sheets.elements;
    const std::string path = sheets.Draw(
        "fonts.pdf", e.Group({e.Text(0.2, 3, "Latin", "Helvetica"), e.Text(0.2, 2, "北京")}));
    const std::string fonts = Output("pdffonts '" + path + "'");
    const std::regex line("\n[A-Z]{6}\\+.* (yes) (yes) (yes) ");
    EXPECT_EQ(std::distance(std::sregex_iterator(fonts.begin(), fonts.end(), line),
                            std::sregex_iterator()),
              std::count(fonts.begin(), fonts.end(), '\n') - 2)
        << fonts;
}

/// Inches of the ink that lies furthest to the right.
double RightInk(const sheet::Image& image) {
    for (int x = image.width - 1; x >= 0; --x)
        for (int y = 0; y < image.height; ++y)
            if (image.At(x, y) < 128) return sheet::kSide * x / image.width;
    return 0;
}

TEST(TextInPdf, LeadersEndWhereTheyWereMeasuredToEnd) {
    for (const char* family : {"DejaVu Sans", "Liberation Sans", "Noto Serif"})
        for (const char* name : {"leader.pdf", "leader.png"}) {
            Sheets sheets;
            const auto& e = sheets.elements;
            const std::string text = "AVATo" + std::string(90, '.');
            const double width = e.engine->Measure({family, 8, false}, text).xSize / 72;
            const double resolution = 600;
            const auto leader =
                Look(sheets.Draw(name, e.Text(0.2, 2, text, family, 8), {"", resolution}), 600);
            const auto dot =
                Look(sheets.Draw(name, e.Text(0.2 + width, 2, ".", family, 8, 2), {"", resolution}),
                     600);
            // A pixel, and in a PDF a third of a point.
            EXPECT_NEAR(RightInk(leader), RightInk(dot),
                        std::string(name) == "leader.pdf" ? 0.0063 : 0.0018)
                << family << name;
        }
}

}  // namespace
