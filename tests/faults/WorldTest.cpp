#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <sys/file.h>
#include <sys/resource.h>
#include <unistd.h>

#include "app/Program.h"

/// Files that may not grow, folders in the place of files and other programs on the same document:
/// the program says what and where, leaves everything as it was, and works again afterwards.
namespace {

namespace fs = std::filesystem;
using tests::Child;
using tests::Contains;
using Words = std::vector<std::string>;

class World : public testing::Test {
protected:
    World() {
        program.WriteLongTable("names.dbf", 300);
        program.Done(make);
        program.Done({"export", "d.json", "-o", "o.png", "--pages", "1-2"});
    }

    /// Name and content of every file of the folder.
    std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::directory_iterator(program.File(""))) {
            const std::string name = entry.path().filename();
            if (entry.is_regular_file()) files[name] = program.Read(name);
        }
        return files;
    }
    /// The command is refused in these words and changes nothing.
    void ExpectRefusal(const Words& command, const Words& words) const {
        SCOPED_TRACE(command[0] + ' ' + words[0]);
        const auto before = Files();
        const auto outcome = program.Run(command);
        EXPECT_EQ(outcome.status, 1);
        for (const auto& word : words) EXPECT_TRUE(Contains(outcome.errors, word));
        EXPECT_TRUE(before == Files());
    }

    tests::Program program;
    const Words make = {"make",       "names.dbf", "-o",          "o.pdf",
                        "--document", "d.json",    "--page-size", "5x5"};
};

TEST_F(World, FilesThatMayNotGrowStayAsTheyAre) {
    const std::pair<Words, std::string> cases[] = {
        {{"set", "d.json", "Listing.Title=Place"}, "\"d.json\""},
        {{"draw", "d.json", "--page", "2"}, "\"d.json\""},
        {make, "\"d.json\""},
        {{"export", "d.json", "-o", "o.pdf"}, "\"o.pdf\""},
        {{"export", "d.json", "-o", "o.png"}, "\"o-1.png\""}};
    rlimit usual{};
    ::getrlimit(RLIMIT_FSIZE, &usual);
    const rlimit small{3000, usual.rlim_max};
    for (const auto& [command, file] : cases) {
        ::setrlimit(RLIMIT_FSIZE, &small);
        ExpectRefusal(command, {file, "cannot be written: File too large."});
        ::setrlimit(RLIMIT_FSIZE, &usual);
        program.Done(command);
    }
}

TEST_F(World, NoSheetIsWrittenWhereOneCannotBe) {
    fs::create_directory(program.File("f-3.png"));
    ExpectRefusal({"export", "d.json", "-o", "f.png"}, {"\"f-3.png\"", "is a folder"});
}

TEST(TwoPrograms, WhoReadBeforeTheOtherWroteIsRefused) {
    const tests::Program program;
    program.WriteLongTable("names.dbf", 4000);
    program.Done({"make", "names.dbf", "-o", "o.pdf", "--document", "long.json"});
    Child slow(program, {"draw", "long.json", "--page", "2"});
    while (slow.Stop() && !slow.IsWriting()) slow.Continue();
    ASSERT_FALSE(slow.HasEnded());
    program.Done({"set", "long.json", "Listing.Title=Place"});
    const std::string theirs = program.Read("long.json");
    slow.Continue();
    const auto outcome = slow.End();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(Contains(outcome.errors,
                         "\"long.json\" cannot be written: another program has "
                         "changed it since it was read."));
    EXPECT_EQ(program.Read("long.json"), theirs);
    program.Done({"draw", "long.json", "--page", "2"});
}

TEST(TwoPrograms, OneOfTwoMakesANewDocument) {
    const tests::Program program;
    for (int i = 0; i < 12; ++i) {
        const std::string name = "new" + std::to_string(i) + ".json";
        const Words command = {"new", name, "--listing-database", "streets.dbf"};
        Child one(program, command);
        Child other(program, command);
        EXPECT_EQ(one.End().status + other.End().status, 1)
            << one.End().errors << other.End().errors;
        program.Done({"check", name});
    }
}

TEST_F(World, ALockIsToldAndGoesWithItsHolder) {
    const Words command = {"set", "d.json", "DefaultPage=2"};
    const int file = ::open(program.File("d.json").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(file, LOCK_EX), 0);
    ExpectRefusal(command, {"another program is just saving it"});
    ::close(file);
    program.Done(command);
}

}  // namespace
