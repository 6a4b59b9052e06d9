// Texts of a PDF as its readers find them again.
#include <regex>

#include "Sheet.h"
#include "support/Utf8.h"

namespace {

using sheet::Sheets;
using support::Output;
using support::PdfText;

using Texts = std::vector<std::string>;

TEST(TextInPdf, ComesBackAsItWasWritten) {
    const Texts texts = {"Affiliated Office Cliff......12", "Đà Nẵng, Αθήνα, Москва......B-3",
                         "東京 Tokyo 12", "50 µm – “dash” – ½ €", "e\u0301tude"};
    const Texts toTheLeft = {"القاهرة", "ירושלים", "مكة المكرمة.......4, B-3", "صلاح"};
    for (const char* family : {"DejaVu Sans", "Helvetica", "Noto Sans"}) {
        Sheets sheets;
        std::string found = PdfText(sheets.Draw("texts.pdf", sheets.Lines(texts, family)));
        for (const auto& text : texts)
            EXPECT_NE(found.find(text), std::string::npos) << text << " in\n" << found;
        found = PdfText(sheets.Draw("left.pdf", sheets.Lines(toTheLeft, family)), "");
        for (const char* word : {"القاهرة", "ירושלים", "مكة", "المكرمة", "B-3", "صلاح"})
            EXPECT_NE(found.find(word), std::string::npos) << word << " in\n" << found;
    }
}

TEST(TextInPdf, FontsAreEmbeddedSubsets) {
    Sheets sheets;
    const std::string path = sheets.Draw("fonts.pdf", sheets.Lines({"Latin", "北京"}, "Helvetica"));
    const std::string kinds = "tail -n +3 | sed 's/^[A-Z]\\{6\\}+.* yes yes yes .*/ok/' | sort -u";
    EXPECT_EQ(Output("pdffonts '" + path + "' | " + kinds), "ok\n");
}

/// The place, in inches, of the leftmost ink at a height of a sheet; -1 if there is none.
double LeftInk(const sheet::Image& image, double y) {
    for (double x = 0; x < sheet::kSide; x += 0.005)
        if (image.Inch(x, y) < 128) return x;
    return -1;
}

// Liberation Serif has an italic face; Noto Sans CJK JP has none and is slanted.
TEST(TextInPdf, ItalicHasItsFaceOrIsSlanted) {
    Sheets sheets;
    const std::tuple<const char*, const char*> fonts[] = {
        {"Liberation Serif", "LiberationSerif-Italic"},
        {"Noto Sans CJK JP", "NotoSansCJKjp-Regular"}};
    for (const auto& [family, face] : fonts) {
        const auto line = sheets.Text(1, 2, "l", family, 72);
        const auto symbol = host::As<host::IHostTextElement>(line)->Symbol();
        desk::SetItalic(*symbol->Font(), true);
        host::As<host::IHostTextElement>(line)->SetSymbol(symbol);
        const std::string pdf = sheets.Draw("italic.pdf", line);
        EXPECT_NE(Output("pdffonts '" + pdf + "'").find(face), std::string::npos) << family;
        for (const auto& path : {pdf, sheets.Draw("italic.png", line)}) {
            const auto image = sheet::Look(path, 100);
            EXPECT_GT(LeftInk(image, 2.3), LeftInk(image, 2.0) + 0.03) << path << family;
            EXPECT_GT(LeftInk(image, 2.0), 0) << path << family;
        }
    }
}

// More characters than a byte can tell apart: letters, ideographs, and some that no font has and
// that boxes stand for. None is a combining one.
TEST(TextInPdf, AnyNumberOfCharactersComesBack) {
    for (const char32_t first : {0x100U, 0x4E00U, 0xE100U}) {
        Sheets sheets;
        Texts lines(21);
        for (char32_t i = 0; i < 336; ++i) lines[i / 16] += support::Utf8(first + i);
        const std::string found = PdfText(sheets.Draw("many.pdf", sheets.Lines(lines)));
        for (const auto& line : lines) EXPECT_NE(found.find(line), std::string::npos) << line;
    }
}

// A press prints grey with black ink alone.
TEST(TextInPdf, BlanksOfBothKindsAreToldApartAndGreyIsNoColour) {
    Sheets sheets;
    const std::string path =
        sheets.Draw("blanks.pdf", sheet::Group({sheet::Rectangle(1, 1, 2, 2, 0xE6E6E6),
                                                sheets.Text(0.2, 2, "a\u00a0b c\u00a0d")}));
    const std::string map = Output("qpdf --qdf --object-streams=disable '" + path + "' -");
    EXPECT_NE(map.find("><00A0>"), std::string::npos);
    EXPECT_NE(map.find("><0020>"), std::string::npos);
    EXPECT_NE(map.find("\n.901961 g\n"), std::string::npos);
    EXPECT_NE(map.find("\n0 g\n"), std::string::npos);
    EXPECT_EQ(map.find(" rg\n"), std::string::npos);
}

// The places of words as the file tells them, in points.
TEST(TextInPdf, WordsStandWithinAHundredthOfAPoint) {
    for (const char* family : {"DejaVu Sans", "Liberation Sans", "Noto Sans CJK SC"})
        for (const char* word : {"WAVATo", "東京To"})
            for (const double points : {7.3, 8.0, 36.0}) {
                Sheets sheets;
                const std::string text =
                    word + std::string(static_cast<std::size_t>(300 / points), '.');
                const double width = sheets.engine->Measure({family, points, false}, text).xSize;
                const auto line = sheets.Text(0.211, 2, text, family, points);
                const std::string box = PdfText(sheets.Draw("word.pdf", line), "-bbox");
                std::smatch edges;
                const std::regex edge("xMin=\"([0-9.]+)\".* xMax=\"([0-9.]+)\"");
                ASSERT_TRUE(std::regex_search(box, edges, edge)) << box;
                EXPECT_NEAR(std::stod(edges[1]), 0.211 * 72, 0.01);
                EXPECT_NEAR(std::stod(edges[2]), 0.211 * 72 + width, 0.011) << text << family;
            }
}

}  // namespace
