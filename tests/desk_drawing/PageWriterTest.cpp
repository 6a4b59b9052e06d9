#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <thread>

#include "Sheet.h"
#include "host/Failure.h"

namespace {

namespace fs = std::filesystem;
using sheet::Look;
using sheet::Output;
using sheet::Sheets;

std::string Bytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

std::ptrdiff_t FileCount(const std::string& folder) {
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

/// Three pages with bookmarks, with all that could differ between two runs.
void WriteBook(const Sheets& sheets, const std::string& path) {
    const auto writer = desk::OpenPageWriter(path, {"Índice – Ωmega", 150});
    for (const char* name : {"Abbey – Main", "", "Ωmega"}) {
        writer->BeginPage(4, 3);
        desk::ElementPainter(*sheets.elements.engine)
            .Paint(writer->Sheet(),
                   sheets.elements.Group({sheets.elements.Rectangle(1, 1, 2, 2, 0xC0C0C0),
                                          sheets.elements.Text(1, 1, "Łódź 北京 fi"),
                                          sheets.elements.Text(1, 2, "Ωmega", "Helvetica")}));
        writer->EndPage(name);
    }
    writer->Finish();
}

TEST(PdfWriter, GivesTheSameBytesAtAnyTime) {
    Sheets sheets;
    unsetenv("SOURCE_DATE_EPOCH");
    WriteBook(sheets, sheets.File("first.pdf"));
    std::this_thread::sleep_for(std::chrono::milliseconds(1100));
    Sheets other;
    WriteBook(other, other.File("second.pdf"));
    EXPECT_EQ(Bytes(sheets.File("first.pdf")), Bytes(other.File("second.pdf")));
    EXPECT_EQ(Output("pdfinfo '" + sheets.File("first.pdf") + "'").find("CreationDate"),
              std::string::npos);
}

TEST(PdfWriter, TellsTitleCreatorAndDate) {
    Sheets sheets;
    setenv("SOURCE_DATE_EPOCH", "1700000000", 1);
    WriteBook(sheets, sheets.File("book.pdf"));
    unsetenv("SOURCE_DATE_EPOCH");
    const std::string info = Output("TZ=UTC pdfinfo -isodates '" + sheets.File("book.pdf") + "'");
    EXPECT_NE(info.find("Índice – Ωmega\n"), std::string::npos) << info;
    EXPECT_NE(info.find("gazetteer\n"), std::string::npos) << info;
    EXPECT_NE(info.find("2023-11-14T22:13:20"), std::string::npos) << info;
    EXPECT_NE(info.find("Pages:           3"), std::string::npos) << info;
    EXPECT_NE(info.find("288 x 216 pts"), std::string::npos) << info;
}

// Readers mend a file whose parts do not lie where it says, and say nothing.
TEST(PdfWriter, NothingHasToBeMended) {
    Sheets sheets;
    const auto writer = desk::OpenPageWriter(sheets.File("long.pdf"), {"(a) \\ title", 150});
    for (int page = 0; page < 300; ++page) {
        writer->BeginPage(4, 3);
        desk::ElementPainter(*sheets.elements.engine)
            .Paint(writer->Sheet(), sheets.elements.Text(1, 1, "Łódź 北京 \uE000"));
        writer->EndPage("Page");
    }
    writer->Finish();
    const std::string found = Output("qpdf --check '" + sheets.File("long.pdf") + "' 2>&1");
    EXPECT_NE(found.find("No syntax or stream encoding errors"), std::string::npos) << found;
    EXPECT_EQ(found.find("WARNING"), std::string::npos) << found;
    const std::string info = Output("pdfinfo '" + sheets.File("long.pdf") + "'");
    EXPECT_NE(info.find("(a) \\ title\n"), std::string::npos) << info;
}

TEST(PdfWriter, BookmarksLeadToTheirPages) {
    Sheets sheets;
    WriteBook(sheets, sheets.File("book.pdf"));
    const std::string xml =
        Output("pdftohtml -xml -i -stdout '" + sheets.File("book.pdf") + "' 2>/dev/null");
    EXPECT_NE(xml.find("page=\"1\">Abbey – Main<"), std::string::npos) << xml;
    EXPECT_NE(xml.find("page=\"3\">Ωmega<"), std::string::npos) << xml;
    EXPECT_EQ(xml.find("page=\"2\">"), std::string::npos) << xml;
}

TEST(PageWriter, PngHasTheResolutionAskedFor) {
    Sheets sheets;
    for (const double resolution : {72.0, 150.0, 299.5}) {
        const auto writer = desk::OpenPageWriter(sheets.File("page.PNG"), {"", resolution});
        writer->BeginPage(2, 1.5);
        desk::ElementPainter(*sheets.elements.engine)
            .Paint(writer->Sheet(), sheets.elements.Rectangle(0, 0, 1, 0.75, 0));
        writer->EndPage();
        writer->Finish();
        const auto image = Look(sheets.File("page.PNG"), 0);
        EXPECT_EQ(image.width, std::lround(2 * resolution));
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
    double start = 0;
    for (int quarter = 0; quarter < 8; ++quarter) {
        const auto text = sheets.elements.Text(1 + quarter / 600.0, 2, "l.");
        const double center = InkCenter(Look(sheets.Draw("text.png", text), 150));
        if (quarter == 0) start = center;
        // Cairo's coverage is of a grid of some 15 samples a pixel; whole pixels would be off by
        // 0.5.
        EXPECT_NEAR(center - start, quarter / 4.0, 0.1);
    }
}

TEST(PageWriter, SvgHoldsOneSheetInItsSize) {
    Sheets sheets;
    const std::string path = sheets.Draw("page.svg", sheets.elements.Text(1, 1, "Text"));
    const std::string svg = Bytes(path);
    EXPECT_NE(svg.find("width=\"288pt\" height=\"288pt\""), std::string::npos)
        << svg.substr(0, 300);
    EXPECT_NE(svg.find("</svg>"), std::string::npos);
    EXPECT_NE(svg.find("<use "), std::string::npos) << "outlines of the letters";
}

std::string FailureOf(const std::string& path, int pages = 1) {
    try {
        const auto writer = desk::OpenPageWriter(path);
        for (int page = 0; page < pages; ++page) {
            writer->BeginPage(4, 4);
            writer->Sheet().Stroke({{1, -2, 2, -1}, 0});
            writer->EndPage();
        }
        writer->Finish();
    } catch (const host::Failure& failure) {
        return failure.description;
    }
    return "no failure";
}

TEST(PageWriter, SaysWhichFileCannotBeWrittenAndWhy) {
    Sheets sheets;
    fs::create_directory(sheets.File("folder.pdf"));
    struct Fault {
        std::string path;
        int pages;
        const char* reason;
    };
    const Fault faults[] = {
        {sheets.File("none/a.pdf"), 1, "No such file or directory"},
        {sheets.File("folder.pdf"), 1, "it is a folder"},
        {sheets.File("folder.pdf/a.pdf/b.png"), 1, "No such file or directory"},
        {sheets.File("a.txt"), 1, "its name must end in .pdf, .svg or .png"},
        {sheets.File("none"), 1, "its name must end in .pdf, .svg or .png"},
        {sheets.File("a.png"), 2, "it can hold one page only"},
        {sheets.File("a.svg"), 2, "it can hold one page only"},
        {sheets.File("a.pdf"), 0, "there is no page"},
        {sheets.File("a.png"), 0, "there is no page"},
    };
    for (const auto& fault : faults)
        EXPECT_EQ(FailureOf(fault.path, fault.pages),
                  "The file \"" + fault.path + "\" cannot be written: " + fault.reason + ".");
    EXPECT_EQ(FileCount(sheets.Folder()), 1) << "nothing is left behind";
}

TEST(PageWriter, AFullDiskIsAFailure) {
    Sheets sheets;
    for (const char* name : {"full.pdf", "full.svg", "full.png"}) {
        fs::create_symlink("/dev/full", sheets.File(name));
        EXPECT_EQ(FailureOf(sheets.File(name)), "The file \"" + sheets.File(name) +
                                                    "\" cannot be written: No space left on "
                                                    "device.");
        EXPECT_TRUE(fs::is_symlink(sheets.File(name)));
    }
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST(PageWriter, AnOutputGivenUpLeavesWhatWasThere) {
    Sheets sheets;
    for (const char* name : {"old.pdf", "old.svg", "old.png"}) {
        std::ofstream(sheets.File(name)) << "old";
        {
            const auto writer = desk::OpenPageWriter(sheets.File(name));
            writer->BeginPage(4, 4);
        }
        EXPECT_EQ(Bytes(sheets.File(name)), "old");
    }
    EXPECT_EQ(FileCount(sheets.Folder()), 3);
}

TEST(PageWriter, KeepsLinksAndPermissionsOfWhatItReplaces) {
    Sheets sheets;
    std::ofstream(sheets.File("real.pdf")) << "old";
    fs::permissions(sheets.File("real.pdf"),
                    fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
    fs::create_symlink("real.pdf", sheets.File("link.pdf"));
    EXPECT_EQ(FailureOf(sheets.File("link.pdf")), "no failure");
    EXPECT_TRUE(fs::is_symlink(sheets.File("link.pdf")));
    EXPECT_EQ(Bytes(sheets.File("real.pdf")).substr(0, 5), "%PDF-");
    EXPECT_EQ(fs::status(sheets.File("real.pdf")).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
}

}  // namespace
