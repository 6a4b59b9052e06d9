#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

#include "app/Program.h"

namespace tests {
namespace {

constexpr char kProfile[] = PROFILES "/default_cmyk.icc";

std::string ProfileBytes() {
    std::ifstream file(kProfile, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class PressFile : public ::testing::Test {
protected:
    void Make(const std::vector<std::string>& more) {
        std::vector<std::string> arguments{"make",    "streets.dbf", "-o",          "o.pdf",
                                           "--press", kProfile,      "--page-size", "10x5in"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        program_.Done(arguments);
    }
    std::string Box(const std::string& name) {
        return program_.Shell("pdfinfo -box o.pdf | sed -n 's/^" + name + ": *//p' | tr -s ' '");
    }

    Program program_;
};

TEST_F(PressFile, HasTheBoxesOfSheetAndBleed) {
    struct Boxes {
        std::vector<std::string> options;
        const char *media, *bleed;
    };
    const Boxes cases[] = {
        {{}, "0.00 0.00 720.00 360.00\n", "0.00 0.00 720.00 360.00\n"},
        {{"--bleed", "0.125"}, "-9.00 -9.00 729.00 369.00\n", "-9.00 -9.00 729.00 369.00\n"},
        {{"--bleed", "25.4mm"}, "-72.00 -72.00 792.00 432.00\n", "-72.00 -72.00 792.00 432.00\n"},
        {{"--crop-marks"}, "-21.00 -21.00 741.00 381.00\n", "0.00 0.00 720.00 360.00\n"},
        {{"--bleed", "0.125", "--crop-marks"},
         "-24.00 -24.00 744.00 384.00\n",
         "-9.00 -9.00 729.00 369.00\n"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(testing::PrintToString(each.options));
        Make(each.options);
        EXPECT_EQ(Box("MediaBox"), each.media);
        EXPECT_EQ(Box("BleedBox"), each.bleed);
        EXPECT_EQ(Box("TrimBox"), "0.00 0.00 720.00 360.00\n");
    }
}

TEST_F(PressFile, SaysWhatItIs) {
    Make({"--title", "Ørsted & Co"});
    const std::string file = program_.Shell("qpdf --qdf --object-streams=disable o.pdf -");
    EXPECT_TRUE(file.starts_with("%PDF-1.6"));
    for (const char* part :
         {"/S /GTS_PDFX\n", "/DestOutputProfile", "/OutputConditionIdentifier (", "/Trapped /False",
          "<pdfxid:GTS_PDFXVersion>PDF/X-4</pdfxid:GTS_PDFXVersion>",
          "<pdf:Trapped>False</pdf:Trapped>", "<xmpMM:DocumentID>uuid:", "Ørsted &amp; Co",
          "<xmp:ModifyDate>"})
        EXPECT_TRUE(Contains(file, part));
    // Of another standard, and what no press prints.
    for (const char* part : {"pdfaid:part>", "/StructTreeRoot", "/Annots", "/GTS_PDFA1",
                             "/DeviceRGB", " rg\n", " g\n"})
        EXPECT_EQ(file.find(part), std::string::npos) << part;
    EXPECT_NE(file.find(ProfileBytes()), std::string::npos);
}

TEST_F(PressFile, HasTheDateOfItsInputAndTheSameBytesAgain) {
    program_.Shell("TZ=UTC touch -d 2024-02-29T12:34:56Z streets.dbf");
    Make({});
    const std::string first = program_.Read("o.pdf");
    const std::string told = program_.Shell("TZ=UTC pdfinfo -isodates o.pdf; pdfinfo -meta o.pdf");
    for (const char* part :
         {"CreationDate:    2024-02-29T12:34:56", "ModDate:         2024-02-29",
          "<xmp:CreateDate>2024-02-29T12:34:56Z<", "<xmp:MetadataDate>2024-02-29T12:34:56Z<"})
        EXPECT_TRUE(Contains(told, part));
    program_.Shell("sleep 1.1");
    Make({});
    EXPECT_EQ(program_.Read("o.pdf"), first);
    setenv("SOURCE_DATE_EPOCH", "1700000000", 1);
    Make({});
    unsetenv("SOURCE_DATE_EPOCH");
    EXPECT_TRUE(Contains(program_.Shell("pdfinfo -meta o.pdf"), "2023-11-14T22:13:20Z"));

    program_.Done({"new", "d.json", "--listing-database", "streets.dbf"});
    program_.Shell("TZ=UTC touch -d 2025-01-01T00:00:00Z d.json");
    program_.Done({"export", "d.json", "-o", "o.pdf", "--press", kProfile});
    EXPECT_TRUE(Contains(program_.Shell("pdfinfo -meta o.pdf"), "2025-01-01T00:00:00Z"));
}

TEST_F(PressFile, KeepsTheInksOfADocument) {
    const std::string ink = "spot(Reflex Blue, cmyk(100,80,0,5), #001489)";
    program_.Done({"new", "d.json", "--listing-database", "streets.dbf"});
    const std::string before = program_.Read("d.json");
    EXPECT_EQ(before.find("\"ink\""), std::string::npos);
    program_.Done({"set", "d.json", "Page.ColumnFontSymbol=DejaVu Sans,9,bold," + ink,
                   "*.BackgroundSymbol=cmyk(0,0,10,0)"});
    program_.Done({"generate", "d.json"});
    const std::string told = program_.Done({"column", "list", "d.json"}).output;
    EXPECT_TRUE(Contains(told, "  ColumnFontSymbol=DejaVu Sans,9,bold," + ink + '\n'));
    EXPECT_TRUE(Contains(told, "  BackgroundSymbol=cmyk(0,0,10,0)\n"));
    EXPECT_TRUE(Contains(program_.Read("d.json"), "\"#001489\""));
    program_.Done(
        {"set", "d.json", "Page.ColumnFontSymbol=Helvetica,10", "*.BackgroundSymbol=#FFFFFF"});
    program_.Done({"draft", "d.json"});
    EXPECT_EQ(program_.Read("d.json").find("\"ink\""), std::string::npos);
}

TEST_F(PressFile, IsNotMadeOfWhatCannotBePrinted) {
    program_.Write("text.icc", "no profile");
    const std::string screen = PROFILES "/srgb.icc";
    struct Refusal {
        std::vector<std::string> options;
        int status;
        const char* sentence;
    };
    const Refusal cases[] = {
        {{"--press", "gone.icc"}, 1, "gone.icc"},
        {{"--press", "text.icc"},
         1,
         "The profile \"text.icc\" cannot be used: it is no ICC profile."},
        {{"--press", screen},
         1,
         "srgb.icc\" cannot be used: it is no profile of a press with CMYK"},
        {{"--bleed", "3mm"}, 2, "--bleed goes with --press."},
        {{"--crop-marks"}, 2, "--crop-marks goes with --press."},
        {{"--press", kProfile, "--bleed", "3cm"}, 2, "--bleed 3cm: the bleed must be a length"},
        {{"--press", kProfile, "--bleed", "0"}, 2, "--bleed 0: "},
        {{"--press", kProfile, "--bleed", "60mm"}, 2, "at most 2 inches"},
        {{"--press", kProfile, "--bleed", "1", "--page-size", "199x9"},
         1,
         "larger than 200 inches."},
        {{"--press", kProfile, "-o", "o.png"}, 2, "--press makes a PDF; the output \"o.png\""},
        {{"--press", kProfile, "-o", "o.svg"}, 2, "o.svg"},
        {{"--press", kProfile, "--set", "*.ColumnFontSymbol=Sans,8,cmyk(1,2,3)"},
         2,
         "cmyk(C,M,Y,K)"},
        {{"--press", kProfile, "--set", "*.BackgroundSymbol=spot(All)"}, 2, "spot(Reflex Blue)"},
        {{"--press", kProfile, "--set", "Page.ColumnFontSymbol=Sans,8,spot(A, #FF0000)", "--set",
          "Listing.ColumnFontSymbol=Sans,8,spot(A, cmyk(1,0,0,0))"},
         1,
         "The spot colour \"A\" has two definitions: "},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(testing::PrintToString(each.options));
        std::vector<std::string> arguments{"make", "streets.dbf"};
        if (std::ranges::find(each.options, "-o") == each.options.end())
            arguments.insert(arguments.end(), {"-o", "o.pdf"});
        arguments.insert(arguments.end(), each.options.begin(), each.options.end());
        const auto outcome = program_.Run(arguments);
        EXPECT_EQ(outcome.status, each.status);
        EXPECT_TRUE(Contains(outcome.errors, each.sentence));
        for (const char* file : {"o.pdf", "o.png", "o-1.png", "o.svg"})
            EXPECT_FALSE(program_.Exists(file)) << file;
    }
}

TEST_F(PressFile, TakesASpotColourThatIsToldOnce) {
    Make({"--set", "Page.ColumnFontSymbol=Sans,8,spot(A)", "--set",
          "Listing.ColumnFontSymbol=Sans,8,spot(A, cmyk(50,0,0,0))"});
    const std::string file =
        program_.Shell("qpdf --qdf --object-streams=disable o.pdf - | tr -s ' \\n' ' '");
    const auto first = file.find("/Separation /A /DeviceCMYK");
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(file.find("/Separation", first + 1), std::string::npos);
    EXPECT_TRUE(Contains(file, "/C1 [ .5 0 0 0 ]"));
}

}  // namespace
}  // namespace tests
