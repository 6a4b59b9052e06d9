#include <gtest/gtest.h>
#include <tuple>

#include "app/Program.h"
#include "support/Text.h"

namespace tests {
namespace {

// The arguments, the exit status, and a part of standard error.
using Refusal = std::tuple<std::vector<std::string>, int, const char*>;

class Refusals : public ::testing::Test {
protected:
    void SetUp() override {
        program_.WriteTable("empty.dbf", {});
        program_.Write("half.dbf", program_.Read("streets.dbf").substr(0, 100));
        support::DbfBuilder({{"NAME", 'C', 8}, {"SHEET", 'N', 4}})
            .Row({"x", "1"})
            .Write(program_.File("nopage.dbf"));
        program_.Done({"new", "d.json", "--listing-database", "streets.dbf"});
        program_.Done({"new", "empty.json", "--listing-database", "empty.dbf"});
        program_.Done({"new", "lost.json", "--listing-database", "streets.dbf", "--set",
                       "IndexDatabaseFile=gone.dbf"});
        program_.Done(
            {"new", "low.json", "--listing-database", "streets.dbf", "--frame", "1,1,5,0.1"});
        program_.Done({"new", "narrow.json", "--listing-database", "streets.dbf", "--set",
                       "Page.ColumnWidth=0.05"});
    }

    // Each leaves the document as it was and no result, neither on standard output nor as a file.
    void Expect(const std::vector<Refusal>& refusals) {
        const auto before = program_.Read("d.json");
        const auto table = program_.Read("streets.dbf");
        for (const auto& [arguments, status, sentence] : refusals) {
            SCOPED_TRACE(testing::PrintToString(arguments));
            const auto outcome = program_.Run(arguments);
            EXPECT_EQ(outcome.status, status);
            EXPECT_TRUE(Contains(outcome.errors, sentence));
            EXPECT_EQ(outcome.output, "");
            EXPECT_EQ(program_.Read("d.json"), before);
            EXPECT_EQ(program_.Read("streets.dbf"), table);
            for (const char* file : {"o.pdf", "o-1.png", "x.json"})
                EXPECT_FALSE(program_.Exists(file)) << file;
        }
    }

    Program program_;
};

TEST_F(Refusals, OfWrongUsage) {
    Expect({
        {{}, 2, "--help"},
        {{"show"}, 2, "DOC"},
        {{"draw", "d.json"}, 2, "--page"},
        {{"make", "streets.dbf"}, 2, "--output"},
        {{"make", "streets.dbf", "-o", "o.docx"}, 2, "o.docx"},
        {{"make", "streets.dbf", "-o", "o.pdf", "--first-map-page", "2"}, 2, "goes with --maps"},
        {{"make", "streets.dbf", "-o", "o.pdf", "--maps", "m.pdf", "--first-map-page", "9999999"},
         2,
         "from -1000000 to 1000000"},
        {{"make", "streets.dbf", "-o", "o.pdf", "--document", "streets.dbf"}, 2, "streets.dbf"},
        {{"make", "streets.dbf", "-o", "o.pdf", "--document", "./o.pdf"}, 2, "o.pdf"},
        {{"new", "streets.dbf", "--force", "--listing-database", "streets.dbf"}, 2, "streets.dbf"},
        {{"table", "streets.dbf", "--limit", "-1"},
         2,
         "--limit -1: the value must be a whole number from 0 to 1000000000."},
        {{"make", "streets.dbf", "-o", "o.pdf", "--first-page", "0"},
         2,
         "--first-page 0: the value must be a whole number from 1 to 1000000000."},
        {{"make", "streets.dbf", "-o", "o.pdf", "--columns", "0"}, 2, "from 1 to 16."},
        {{"make", "streets.dbf", "-o", "o.pdf", "--columns", "99999999999"}, 2, "from 1 to 16."},
        {{"make", "streets.dbf", "-o", "o.pdf", "--dpi", "nan"},
         2,
         "--dpi nan: the value must be a number from 10 to 1200."},
        {{"draw", "d.json", "--page", "1x"}, 2, "--page 1x: the value must be a whole number"},
        {{"draw", "d.json", "--page"}, 2, "--page needs a value; --help"},
        {{"draw", "d.json", "--page", "1", "--page", "2"},
         2,
         "--page stands more than once; --help"},
        {{"show", "d.json", "--json=maybe"}, 2, "--json takes no value; --help"},
        {{"export", "d.json", "-o", "o.pdf", "x", "--y", "z"}, 2, "\"x\", \"--y\", \"z\" are not"},
        {{"set", "d.json", "--title", " "}, 2, "--title: the title must have a character"},
        {{"make", "streets.dbf", "-o", "o.pdf", "--page-size", "a44"}, 2, "mean \"a4\"?"},
        {{"column"}, 2, "command is missing"},
        {{"book", "new", "x.json", "--sheets", "streets.dbf", "--row-labels", "A..9"}, 2, "A..9"},
        {{"--locale", "is", "table", "streets.dbf"}, 2, "no command \"--locale\""},
        {{"set", "d.json", "Listing.ColumnFontSymbol=DejaVu Sans,1e9"}, 2, "SIZE at most 1000"},
        {{"set", "d.json", "Listing.ColumnWidth=-1001"}, 2, "inches from -1000 to 1000"},
        {{"set", "d.json", "--page-size", "0.9x9"}, 2, "no width for the index"},
        {{"set", "d.json", "--head", "$$LIST"}, 2, "unknown token \"$$LIST\""},
        {{"set", "d.json", "--head-font", "Sans"}, 2, "--head-font"},
        {{"make", "streets.dbf", "-o", "o.pdf", "--page-size", "a0"}, 2, "--page-size a0"},
        {{"make", "streets.dbf", "-o", "o.pdf", "--frame", "1,1,9,3"}, 2, "--frame 1,1,9,3"},
        {{"make", "streets.dbf", "-o", "o.pdf", "--first-page", "2147483647"}, 2, "1000000000"},
        {{"set", "d.json", "--first-page", "1000000001"}, 2, "1000000000"},
        {{"export", "d.json", "-o", "o.pdf", "--pages", "2-1"}, 2, "--pages 2-1"},
        {{"set", "d.json", "DefaultPage=2", "Foo=1"}, 2, "no property \"Foo\""},
        {{"set", "d.json", "ColumnWidth=1"}, 2, "COLUMN.ColumnWidth=VALUE"},
        {{"set", "d.json", "KeepHeadings=true"}, 2, "Typesetting.KeepHeadings=VALUE"},
        {{"set", "d.json", "CombineDelimiter=/"}, 2, "\"CombineDelimeter\"?"},
        {{"set", "d.json", "Listing.columnwith=1"}, 2, "\"ColumnWidth\"?"},
        {{"exprot", "d.json", "-o", "o.pdf"}, 2, "\"export\"?"},
        {{"export", "d.json", "-o", "o.pdf", "--page=1"}, 2, "\"--pages\"?"},
        {{"set", "d.json"}, 2, "What to change is missing"},
        {{"set", "d.json", "Listing.Foo=1"}, 2, "no column property \"Foo\""},
        {{"set", "d.json", "Region.Title=x"}, 2, "no column \"Region\""},
        {{"set", "d.json", "SortColumns=yes"}, 2, "true or false"},
        {{"set", "d.json", "HaveSavedListings=true"}, 2, "HaveSavedListings"},
        {{"set", "d.json", "PageGroups=1"}, 2, "PageGroups"},
        {{"set", "d.json", "ColumnDisplayOrder=Page"}, 2, "\"Listing\" is missing"},
        {{"set", "d.json", "ColumnDisplayOrder=Page,Listing,page"}, 2, "\"Page\" stands twice"},
        {{"set", "d.json", "ColumnDisplayOrder=Page:off,Listing"}, 2, "\"Page:off\""},
        {{"column", "add", "d.json", "PAGE"}, 2, "Invalid Name: Column name already in use!"},
        {{"column", "add", "d.json", "  "}, 2, "name"},
        {{"column", "add", "d.json", "OID"}, 2, "cannot be named \"OID\""},
        {{"column", "add", "d.json", "a,b"}, 2, "commas separate"},
        {{"column", "add", "d.json", "Gr\xF6\xDF e"}, 2, "NAME: \"Gr?? e\" is not UTF-8"},
        {{"set", "d.json", "Page.Title=\xF6"}, 2, "\"Page.Title=?\" is not UTF-8"},
        {{"column", "add", "d.json", "New", "Page.Title=x"}, 2, "Page.Title"},
        {{"column", "remove", "d.json", "Region"}, 2, "no column \"Region\""},
        {{"column", "remove", "d.json", "page"}, 2, "There 'Page' column can't be removed"},
        {{"column", "remove", "d.json", "Listing"}, 2, "at least one column defined"},
    });
}

TEST_F(Refusals, OfWhatCannotBeDone) {
    program_.Shell("mkfifo pipe.pdf");
    Expect({
        {{"new", "d.json", "--listing-database", "streets.dbf"}, 1, "--force"},
        {{"new", "x.json", "--listing-database", "gone.dbf"}, 1, "gone.dbf"},
        {{"make", "nopage.dbf", "-o", "o.pdf"}, 1, "\"Page\"; its fields are NAME, SHEET."},
        {{"make", "streets.dbf", "-o", "o.pdf", "--book", "gone.json"}, 1, "gone.json"},
        {{"book", "new", "x.json", "--sheets", "empty.dbf"}, 1, "no records"},
        {{"book", "new", "d.json", "--sheets", "streets.dbf"}, 1, "--force"},
        {{"table", "."}, 1, ". is a folder"},
        {{"make", "empty.dbf", "-o", "o.pdf"}, 1, "no records"},
        {{"make", "gone.dbf", "-o", "nowhere/o.pdf"}, 1, "there is no folder \"nowhere\""},
        {{"make", "streets.dbf", "-o", "o.pdf", "--locale", "xx_YY"}, 1, "xx_YY.\n"},
        {{"make", "streets.dbf", "-o", "o.pdf", "--locale", "enn"},
         1,
         "named enn. Did you mean \"en\"?"},
        {{"make", "streets.dbf", "-o", "o.pdf", "--locale", "czech"}, 1, "Did you mean \"cs\"?"},
        {{"make", "streets.dbf", "-o", "pipe.pdf"}, 1, "pipe.pdf\" cannot be written: no program"},
        {{"make", "streets.dbf", "-o", "o.pdf", "--set", "Listing.Expression=[X]"}, 1, "named X"},
        {{"make", "streets.dbf", "-o", "o.png", "--document", "nowhere/x.json"}, 1, "nowhere"},
        {{"make", "streets.dbf", "-o", "o.pdf", "--set", "*.Expression="}, 1, "records are empty"},
        {{"export", "lost.json", "-o", "o.pdf"}, 1, "does not exist"},
        {{"table", "gone.dbf"}, 1, "gone.dbf"},
        {{"make", "half.dbf", "-o", "o.pdf"}, 1, "half.dbf is damaged"},
        {{"draw", "d.json", "--page", "2"}, 1, "There is no page 2"},
        {{"export", "empty.json", "-o", "o.pdf"}, 1, "no records"},
        {{"draw", "low.json", "--page", "1"}, 1, "no page"},
        {{"export", "low.json", "-o", "o.png"}, 1, "no page"},
        {{"generate", "narrow.json"}, 1, "too narrow for selected Font! (column \"Page\""},
    });
}

// Whatever names the files go by, and before a run.
TEST_F(Refusals, ToWriteOverWhatIsRead) {
    program_.WriteTable("sheets.dbf", {{"North", "1", "1", "1"}});
    program_.Done({"book", "new", "book.json", "--sheets", "sheets.dbf"});
    program_.Shell(
        "cp streets.dbf t-1.png; cp d.json x-1.png; ln -s streets.dbf out.pdf; "
        "ln streets.dbf hard.pdf; ln sheets.dbf hard.json; ln d.json same.pdf; "
        "echo UTF-8 >streets.cpg; echo mine >other.txt");
    const std::string files = "sha256sum *.dbf *.json *.png *.cpg *.pdf *.txt";
    const std::string before = program_.Shell(files);
    const std::vector<std::string> make{"make",   "streets.dbf", "-o",        "y.pdf",
                                        "--book", "book.json",   "--document"};
    const std::vector<std::string> renew{"new",    "--listing-database", "streets.dbf", "--force",
                                         "--book", "book.json"};
    std::vector<Refusal> refusals{
        {{"make", "t-1.png", "-o", "t.png"}, 2, "made from it"},
        {{"make", "streets.dbf", "-o", "x.png", "--document", "x-1.png"}, 2, "is the document"},
        {{"export", "x-1.png", "-o", "x.png"}, 2, "is the document"},
        {{"export", "d.json", "-o", "same.pdf"}, 2, "is the document"},
        {{"export", "d.json", "-o", "out.pdf"}, 2, "made from it"},
        {{"draw", "d.json", "--page", "1", "-o", "hard.pdf"}, 2, "made from it"},
        {{"book", "new", "streets.cpg", "--sheets", "streets.dbf", "--force"}, 2, "made from it"}};
    for (const char* file : {"streets.dbf", "streets.cpg", "book.json", "sheets.dbf", "hard.json",
                             "hard.pdf", "other.txt", "empty.dbf"})
        for (auto command : {make, renew}) {
            command.emplace_back(file);
            const bool isOther = std::string(file) == "other.txt" || file[0] == 'e';
            refusals.emplace_back(command, isOther ? 1 : 2,
                                  isOther ? "is no document of the desk" : "made from it");
        }
    for (const auto& [command, status, sentence] : refusals) {
        SCOPED_TRACE(testing::PrintToString(command));
        const auto outcome = program_.Run(command);
        EXPECT_EQ(outcome.status, status);
        EXPECT_TRUE(Contains(outcome.errors, sentence));
        EXPECT_FALSE(Contains(outcome.errors, "records:"));
        EXPECT_EQ(program_.Shell(files), before);
    }
}

TEST_F(Refusals, OfMapBooksNameTheBook) {
    program_.WriteTable("sheets.dbf", {{"North", "1", "1", "1"}});
    program_.Done({"book", "new", "book.json", "--sheets", "sheets.dbf"});
    program_.Done({"new", "linked.json", "--listing-database", "streets.dbf", "--book", "book.json",
                   "--set", "LinkToMapSeries=true", "--set", "MapSeriesSectionKey=maps", "--set",
                   "MapSeriesTemplateKey=sheet", "--set", "MapSeriesFrameName=Main map"});
    program_.Shell("rm sheets.dbf");
    EXPECT_TRUE(Contains(program_.Done({"check", "linked.json"}).output,
                         "that the map book \"book.json\" names for the frame \"Main map\" cannot "
                         "be read: There is no file sheets.dbf."));
    Expect({{{"new", "x.json", "--listing-database", "streets.dbf", "--book", "/dev/zero"},
             1,
             "\"/dev/zero\""}});
}

TEST_F(Refusals, OfStoredResultsThatAreNoTexts) {
    program_.Done({"generate", "d.json"});
    const std::string good = program_.Read("d.json");
    for (const auto& [piece, other, told] :
         {std::tuple{"\"Main St\"]", "null]", "no text in the column \"Listing\""},
          {"\" Main St\"]", "{\"set\":[]}]", "Type mismatch"}}) {
        program_.Write("d.json", gazetteer::ReplaceAll(good, piece, other));
        const auto outcome = program_.Run({"show", "d.json", "--json"});
        EXPECT_EQ(outcome.status, 1) << piece;
        EXPECT_EQ(outcome.output, "");
        EXPECT_TRUE(Contains(outcome.errors, told));
    }
}

TEST_F(Refusals, TellMoreWhenAskedToAndLessWhereThereAreNoPages) {
    const auto outcome = program_.Run({"generate", "narrow.json", "--verbose"});
    EXPECT_EQ(outcome.status, 1);
    for (const char* told : {"SplitText", "-2147220991"})
        EXPECT_TRUE(Contains(outcome.errors, told));
    EXPECT_TRUE(
        Contains(program_.Done({"generate", "low.json"}).errors, "2 listings found no place"));
    EXPECT_EQ(program_.Done({"check", "empty.json", "--json"}).Json()["drawable"], true);
    EXPECT_EQ(program_.Shell(GAZETTEER_PROGRAM " --help >/dev/full 2>&1; echo $?"), "1\n");
}

TEST_F(Refusals, OfDamagedDocumentsByEveryCommand) {
    const std::string good = program_.Read("d.json");
    const auto with = [&](const char* spacing) {
        return gazetteer::ReplaceAll(good, "[\"RepeatSpacing\",0.1],\n", spacing);
    };
    for (const auto& [bytes, sentence] :
         {std::pair{good.substr(0, good.size() / 2), "damaged"},
          {gazetteer::ReplaceAll(good, "\"version\":1", "\"version\":2"), "version 2"},
          {gazetteer::ReplaceAll(good, "\"locale\":\"en_US\"", "\"locale\":\"xx_YY\""),
           "There is no locale named xx_YY. (file \"d.json\")"},
          {with(""), "\"RepeatSpacing\""},
          {with("[\"RepeatSpacing\",\"w\"],\n"), "\"RepeatSpacing\""}}) {
        program_.Write("d.json", bytes);
        Expect({
            {{"set", "d.json", "DefaultPage=2"}, 1, sentence},
            {{"column", "add", "d.json", "New"}, 1, sentence},
            {{"column", "remove", "d.json", "Listing"}, 1, sentence},
            {{"generate", "d.json"}, 1, sentence},
            {{"draw", "d.json", "--page", "1"}, 1, sentence},
            {{"draft", "d.json"}, 1, sentence},
            {{"export", "d.json", "-o", "o.pdf"}, 1, sentence},
        });
    }
}

}  // namespace
}  // namespace tests
