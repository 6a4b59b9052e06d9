#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include "app/Program.h"

/// Two programs on one document: the second is told, and what the first wrote stays.
namespace {

using tests::Child;
using tests::Contains;

TEST(TwoPrograms, WhoReadBeforeTheOtherWroteIsRefused) {
    const tests::Program program;
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

TEST(TwoPrograms, OneOfTwoMakesANewDocument) {
    const tests::Program program;
    for (int i = 0; i < 12; ++i) {
        const std::string name = "new" + std::to_string(i) + ".json";
        const std::vector<std::string> command = {"new", name, "--listing-database", "streets.dbf"};
        Child one(program, command);
        Child other(program, command);
        EXPECT_EQ(one.End().status + other.End().status, 1)
            << one.End().errors << other.End().errors;
        program.Done({"check", name});
    }
}

TEST(TwoPrograms, ALockIsToldAndGoesWithItsHolder) {
    const tests::Program program;
    program.Done({"new", "d.json", "--listing-database", "streets.dbf"});
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
