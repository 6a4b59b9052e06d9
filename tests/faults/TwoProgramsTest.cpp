#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include "app/Program.h"

/// Two programs on one document: the second is told, and what the first wrote stays.
namespace {

using tests::Child;
using tests::Contains;

constexpr int kRaces = 12;

class TwoPrograms : public testing::Test {
protected:
    TwoPrograms() { program.Done({"new", "d.json", "--listing-database", "streets.dbf"}); }

    tests::Program program;
};

TEST_F(TwoPrograms, WhoReadBeforeTheOtherWroteIsRefused) {
    program.WriteLongTable("names.dbf", 4000);
    program.Done({"make", "names.dbf", "-o", "o.pdf", "--document", "long.json"});
    Child slow(program, {"draw", "long.json", "--page", "2"});
    bool held = false;
    while (!held && slow.Stop()) {
        held = slow.IsWriting();
        if (!held) slow.Continue();
    }
    ASSERT_TRUE(held);
    program.Done({"set", "long.json", "Listing.Title=Place"});
    const std::string theirs = program.Bytes("long.json");
    slow.Continue();
    const auto outcome = slow.End();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(Contains(outcome.errors,
                         "\"long.json\" cannot be written: another program has "
                         "changed it since it was read."));
    EXPECT_EQ(program.Bytes("long.json"), theirs);
    program.Done({"draw", "long.json", "--page", "2"});
}

// However the two fall together, each change is in the document or its maker was told.
TEST_F(TwoPrograms, NoChangeIsLostWithoutAWord) {
    int refused = 0;
    for (int i = 0; i < kRaces; ++i) {
        const std::string value = std::to_string(i + 2);  // None is the default.
        Child one(program, {"set", "d.json", "RepeatSpacing=0." + value + "5"});
        Child other(program, {"set", "d.json", "DefaultPage=" + value});
        const bool oneDone = one.End().status == 0;
        const bool otherDone = other.End().status == 0;
        EXPECT_TRUE(oneDone || otherDone) << one.End().errors << other.End().errors;
        for (auto* child : {&one, &other}) {
            if (child->End().status == 0) continue;
            ++refused;
            EXPECT_TRUE(Contains(child->End().errors, "another program"));
        }
        const auto stored = program.Stored("d.json");
        EXPECT_EQ(stored["RepeatSpacing"] == std::stod("0." + value + "5"), oneDone);
        EXPECT_EQ(stored["DefaultPage"] == i + 2, otherDone);
    }
    std::printf("%d of %d pairs fell together\n", refused, kRaces);
}

TEST_F(TwoPrograms, OneOfTwoMakesANewDocument) {
    for (int i = 0; i < kRaces; ++i) {
        const std::string name = "new" + std::to_string(i) + ".json";
        const std::vector<std::string> command = {"new", name, "--listing-database", "streets.dbf"};
        Child one(program, command);
        Child other(program, command);
        EXPECT_EQ(one.End().status + other.End().status, 1)
            << one.End().errors << other.End().errors;
        program.Done({"check", name});
    }
}

TEST_F(TwoPrograms, ALockIsToldAndGoesWithItsHolder) {
    const std::string before = program.Bytes("d.json");
    const int file = ::open(program.File("d.json").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(file, LOCK_EX), 0);
    const auto outcome = program.Run({"set", "d.json", "DefaultPage=2"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(Contains(outcome.errors, "another program is just saving it"));
    EXPECT_EQ(program.Bytes("d.json"), before);
    ::close(file);
    program.Done({"set", "d.json", "DefaultPage=2"});
}

}  // namespace
