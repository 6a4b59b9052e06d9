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
    for (const char* name : {"Abbey – Main", "", "Ωmega"})
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
    Sheets sheets;
    const std::string first = WriteBook(sheets);
    std::this_thread::sleep_for(std::chrono::milliseconds(1100));
    Sheets other;
    EXPECT_EQ(desk::ReadWholeFile(first), desk::ReadWholeFile(WriteBook(other)));
    EXPECT_EQ(Output("pdfinfo '" + first + "'").find("CreationDate"), std::string::npos);
}

TEST(PdfWriter, TellsTitleCreatorDateAndBookmarks) {
    Sheets sheets;
    setenv("SOURCE_DATE_EPOCH", "1700000000", 1);
    const std::string path = WriteBook(sheets);
    unsetenv("SOURCE_DATE_EPOCH");
    const std::string told = Output("TZ=UTC pdfinfo -isodates '" + path + "'") +
                             Output("pdftohtml -xml -i -stdout '" + path + "' 2>/dev/null");
    for (const char* part :
         {"Índice – Ωmega\n", "gazetteer\n", "2023-11-14T22:13:20", "Pages:           3",
          "288 x 216 pts", "page=\"1\">Abbey – Main<", "page=\"3\">Ωmega<"})
        EXPECT_NE(told.find(part), std::string::npos) << part << " in " << told;
    EXPECT_EQ(told.find("page=\"2\">"), std::string::npos) << told;
}

// Readers mend a file whose parts do not lie where it says, and say nothing.
TEST(PdfWriter, NothingHasToBeMended) {
    Sheets sheets;
    const auto writer = desk::OpenPageWriter(sheets.File("long.pdf"), {"(a) \\ title", 150});
    for (int page = 0; page < 300; ++page)
        sheets.AddPage(*writer, sheets.Text(1, 1, "Łódź 北京 \uE000"), "Page");
    writer->Finish();
    const std::string found = Output("qpdf --check '" + sheets.File("long.pdf") + "' 2>&1");
    EXPECT_NE(found.find("No syntax or stream encoding errors"), std::string::npos) << found;
    EXPECT_EQ(found.find("WARNING"), std::string::npos) << found;
    const std::string info = Output("pdfinfo '" + sheets.File("long.pdf") + "'");
    EXPECT_NE(info.find("(a) \\ title\n"), std::string::npos) << info;
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
    fs::create_directory(sheets.File("folder.pdf"));
    const char* const full[] = {"full.pdf", "full.svg", "full.png"};
    for (const char* name : full) fs::create_symlink("/dev/full", sheets.File(name));
    const std::string noEnding = "its name must end in .pdf, .png or .svg";
    struct Fault {
        const char* name;
        int pages;
        std::string reason;
    };
    const Fault faults[] = {
        {"none/a.pdf", 1, "No such file or directory"},
        {"folder.pdf", 1, "it is a folder"},
        {"folder.pdf/a.pdf/b.png", 1, "No such file or directory"},
        {"a.txt", 1, noEnding},
        {"none", 1, noEnding},
        {"a.png", 2, "it can hold one page only"},
        {"a.svg", 2, "it can hold one page only"},
        {"a.pdf", 0, "there is no page"},
        {"a.png", 0, "there is no page"},
        {full[0], 1, "No space left on device"},
        {full[1], 1, "No space left on device"},
        {full[2], 1, "No space left on device"},
    };
    for (const auto& fault : faults) {
        const std::string path = sheets.File(fault.name);
        const auto failure = support::FailureOf([&] {
            const auto writer = desk::OpenPageWriter(path);
            for (int page = 0; page < fault.pages; ++page)
                sheets.AddPage(*writer, sheets.Text(1, 1, "Text"));
            writer->Finish();
        });
        EXPECT_EQ(failure.description,
                  "The file \"" + path + "\" cannot be written: " + fault.reason + ".");
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(sheets.Path()), {}), 4)
        << "nothing is left behind";
    for (const char* name : full) EXPECT_TRUE(fs::is_symlink(sheets.File(name))) << name;
}

TEST(PageWriter, AnOutputGivenUpLeavesWhatWasThere) {
    Sheets sheets;
    for (const char* name : {"old.pdf", "old.svg", "old.png"}) {
        sheets.Write(name, "old");
        desk::OpenPageWriter(sheets.File(name))->BeginPage(4, 4);
        EXPECT_EQ(desk::ReadWholeFile(sheets.File(name)), "old");
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(sheets.Path()), {}), 3);
}

}  // namespace
