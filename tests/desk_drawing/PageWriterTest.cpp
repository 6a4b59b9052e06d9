#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <thread>

#include "Sheet.h"
#include "desk/files/Files.h"
#include "support/FailureOf.h"

namespace {

namespace fs = std::filesystem;
using sheet::Look;
using sheet::Rectangle;
using sheet::Sheets;
using support::Output;

/// Three pages with bookmarks, with all that could differ between two runs.
std::string WriteBook(const Sheets& sheets) {
    const auto writer = desk::OpenPageWriter(sheets.File("book.pdf"), {"Índice – Ωmega", 150});
    for (const char* name : {"(Abbey) \\ Main", "", "Ωmega"})
        sheets.AddPage(
            *writer,
            sheet::Group({Rectangle(1, 1, 2, 2, 0xC0C0C0), sheets.Text(1, 1, "Łódź 北京 fi"),
                          sheets.Text(1, 2, "Ωmega", "Helvetica")}),
            name, 3);
    writer->Finish();
    return sheets.File("book.pdf");
}

TEST(PdfWriter, GivesTheSameBytesAtAnyTime) {
    unsetenv("SOURCE_DATE_EPOCH");
    const Sheets sheets, other;
    const std::string first = WriteBook(sheets);
    std::this_thread::sleep_for(std::chrono::milliseconds(1100));
    EXPECT_EQ(desk::ReadWholeFile(first), desk::ReadWholeFile(WriteBook(other)));
    EXPECT_EQ(Output("pdfinfo '" + first + "'").find("CreationDate"), std::string::npos);
}

TEST(PdfWriter, TellsTitleCreatorDateAndBookmarks) {
    const Sheets sheets;
    setenv("SOURCE_DATE_EPOCH", "1700000000", 1);
    const std::string path = WriteBook(sheets);
    unsetenv("SOURCE_DATE_EPOCH");
    const std::string told = Output("TZ=UTC pdfinfo -isodates '" + path + "'") +
                             Output("pdftohtml -xml -i -stdout '" + path + "' 2>/dev/null");
    for (const char* part :
         {"Índice – Ωmega\n", "gazetteer\n", "2023-11-14T22:13:20", "Pages:           3",
          "288 x 216 pts", "page=\"1\">(Abbey) \\ Main<", "page=\"3\">Ωmega<"})
        EXPECT_NE(told.find(part), std::string::npos) << part << " in " << told;
    EXPECT_EQ(told.find("page=\"2\">"), std::string::npos) << told;
}

// Readers mend a file whose parts do not lie where it says, and say nothing.
TEST(PdfWriter, NothingHasToBeMended) {
    Sheets sheets;
    const auto writer = desk::OpenPageWriter(sheets.File("long.pdf"));
    for (int page = 0; page < 300; ++page)
        sheets.AddPage(*writer, sheets.Text(1, 1, "Łódź 北京 \uE000"), "Page");
    writer->Finish();
    const std::string found = Output("qpdf --check '" + sheets.File("long.pdf") + "' 2>&1");
    EXPECT_NE(found.find("No syntax or stream encoding errors"), std::string::npos) << found;
    EXPECT_EQ(found.find("WARNING"), std::string::npos) << found;
}

TEST(PageWriter, PngHasTheResolutionAskedFor) {
    Sheets sheets;
    for (const double resolution : {72.0, 150.0, 299.5}) {
        const auto writer = desk::OpenPageWriter(sheets.File("page.PNG"), {"", resolution});
        sheets.AddPage(*writer, Rectangle(0, 0, 2, 0.75, 0), "", 1.5);
        writer->Finish();
        const auto image = Look(sheets.File("page.PNG"), 0);
        EXPECT_EQ(image.width, std::lround(4 * resolution));
        EXPECT_EQ(image.height, std::lround(1.5 * resolution));
        EXPECT_EQ(image.At(1, image.height - 2), 0) << "the origin is the lower left corner";
        EXPECT_EQ(image.At(1, 1), 255);
        EXPECT_EQ(image.At(image.width - 2, image.height - 2), 255);
    }
}

/// Middle of the ink from the left, in pixels.
double InkCenter(const sheet::Image& image) {
    double sum = 0;
    double ink = 0;
    for (int x = 0; x < image.width; ++x)
        for (int y = 0; y < image.height; ++y) {
            ink += 255 - image.At(x, y);
            sum += (255 - image.At(x, y)) * (x + 0.5);
        }
    return sum / ink;
}

TEST(PageWriter, PngSetsLettersBetweenPixels) {
    Sheets sheets;
    const auto center = [&](int quarter) {
        const auto text = sheets.Text(1 + quarter / 600.0, 2, "l.");
        return InkCenter(Look(sheets.Draw("text.png", text), 150));
    };
    const double start = center(0);
    // Cairo's coverage is of a grid of some 15 samples a pixel; whole pixels would be off by 0.5.
    for (int quarter = 1; quarter < 8; ++quarter)
        EXPECT_NEAR(center(quarter) - start, quarter / 4.0, 0.1);
}

TEST(PageWriter, SvgHoldsOneSheetInItsSize) {
    Sheets sheets;
    const std::string svg = desk::ReadWholeFile(sheets.Draw("page.svg", sheets.Text(1, 1, "Text")));
    EXPECT_NE(svg.find("width=\"288pt\" height=\"288pt\""), std::string::npos)
        << svg.substr(0, 300);
    EXPECT_NE(svg.find("</svg>"), std::string::npos);
    EXPECT_NE(svg.find("<use "), std::string::npos) << "outlines of the letters";
}

TEST(PageWriter, SaysWhichFileCannotBeWrittenAndWhy) {
    Sheets sheets;
    const char* const endings[] = {".pdf", ".svg", ".png"};
    for (const std::string ending : endings)
        fs::create_symlink("/dev/full", sheets.File("full" + ending));
    const std::string full = "No space left on device";
    const std::tuple<const char*, int, std::string> faults[] = {
        {"none/a.pdf", 1, "No such file or directory"},
        {"a.txt", 1, "its name must end in .pdf, .png or .svg"},
        {"a.png", 2, "it can hold one page only"},
        {"a.svg", 2, "it can hold one page only"},
        {"a.pdf", 0, "there is no page"},
        {"a.png", 0, "there is no page"},
        {"full.pdf", 1, full},
        {"full.svg", 1, full},
        {"full.png", 1, full},
    };
    for (const auto& [name, pages, reason] : faults) {
        const std::string path = sheets.File(name);
        const auto failure = support::FailureOf([&, count = pages] {
            const auto writer = desk::OpenPageWriter(path);
            for (int page = 0; page < count; ++page)
                sheets.AddPage(*writer, sheets.Text(1, 1, "Text"));
            writer->Finish();
        });
        EXPECT_EQ(failure.description,
                  "The file \"" + path + "\" cannot be written: " + reason + ".");
    }
    // An output that is given up leaves what was there.
    for (const std::string ending : endings) {
        EXPECT_TRUE(fs::is_symlink(sheets.File("full" + ending))) << ending;
        sheets.Write("old" + ending, "old");
        desk::OpenPageWriter(sheets.File("old" + ending))->BeginPage(4, 4);
        EXPECT_EQ(desk::ReadWholeFile(sheets.File("old" + ending)), "old");
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(sheets.Path()), {}), 6)
        << "nothing else is left behind";
}

}  // namespace
