// Texts of a PDF as its readers find them again.
#include <cmath>
#include <glib.h>
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
            EXPECT_NEAR(RightInk(leader), RightInk(dot), 0.0018) << family << name << " a pixel";
        }
}

/// UTF-8 of a character.
std::string Utf8(gunichar character) {
    std::string bytes(6, '\0');
    bytes.resize(static_cast<std::size_t>(g_unichar_to_utf8(character, bytes.data())));
    return bytes;
}

/// Characters from the first on, in lines of 16, none of which is a combining one.
std::vector<std::string> Lines(gunichar first, int count) {
    std::vector<std::string> lines;
    for (int i = 0; i < count; ++i) {
        if (i % 16 == 0) lines.emplace_back();
        lines.back() += Utf8(first + static_cast<gunichar>(i));
    }
    return lines;
}

// More characters than a byte can tell apart: letters, ideographs, and some that no font has and
// that boxes stand for.
TEST(TextInPdf, AnyNumberOfCharactersComesBack) {
    for (const gunichar first : {0x100U, 0x4E00U, 0xE100U}) {
        Sheets sheets;
        std::vector<host::Ref<host::IHostElement>> rows;
        const auto lines = Lines(first, 336);
        double y = 3.9;
        for (const auto& line : lines) rows.push_back(sheets.elements.Text(0.2, y -= 0.17, line));
        const std::string found = Output(
            "pdftotext -layout '" + sheets.Draw("many.pdf", sheets.elements.Group(rows)) + "' -");
        for (const auto& line : lines) EXPECT_NE(found.find(line), std::string::npos) << line;
    }
}

TEST(TextInPdf, BlanksOfBothKindsAreToldApart) {
    Sheets sheets;
    const std::string text = "a\u00a0b c\u00a0d";
    const std::string path = sheets.Draw("blanks.pdf", sheets.elements.Text(0.2, 2, text));
    const std::string map = Output("qpdf --qdf --object-streams=disable '" + path + "' -");
    EXPECT_NE(map.find("><00A0>"), std::string::npos);
    EXPECT_NE(map.find("><0020>"), std::string::npos);
}

// The places of words as the file tells them, in points.
TEST(TextInPdf, WordsStandWithinAHundredthOfAPoint) {
    for (const char* family : {"DejaVu Sans", "Liberation Sans", "Noto Sans CJK SC"})
        for (const double points : {7.3, 8.0, 36.0}) {
            Sheets sheets;
            const auto& e = sheets.elements;
            const std::string text =
                "WAVATo" + std::string(static_cast<std::size_t>(400 / points), '.');
            const double width = e.engine->Measure({family, points, false}, text).xSize;
            const std::string box =
                Output("pdftotext -bbox '" +
                       sheets.Draw("word.pdf", e.Text(0.211, 2, text, family, points)) + "' -");
            std::smatch edges;
            const std::regex edge("xMin=\"([0-9.]+)\".* xMax=\"([0-9.]+)\"");
            ASSERT_TRUE(std::regex_search(box, edges, edge)) << box;
            EXPECT_NEAR(std::stod(edges[1]), 0.211 * 72, 0.01);
            EXPECT_NEAR(std::stod(edges[2]), 0.211 * 72 + width, 0.011) << family << points;
        }
}

}  // namespace
