#include <chrono>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <thread>

#include "app/Program.h"

/// Whoever pulls the plug in the midst of a save or an export finds the old file or the new one.
namespace {

using tests::Child;
using Clock = std::chrono::steady_clock;
using Contents = std::map<std::string, std::string>;  ///< By name of a file.

constexpr int kKillsPerCommand = 20;

struct Case {
    std::vector<std::string> command;
    std::vector<std::string> files;  ///< That it writes, or must leave alone.
};

class Killed : public testing::Test {
protected:
    Killed() {
        program.WriteLongTable("names.dbf", 200);
        program.Done({"new", "plain.json", "--listing-database", "names.dbf"});
        program.Done({"make", "names.dbf", "-o", "o.pdf", "--document", "bound.json"});
    }

    Contents Read(const std::vector<std::string>& files) const {
        Contents contents;
        for (const auto& file : files) contents[file] = program.Read(file);
        return contents;
    }
    void Restore(const Contents& contents) const {
        for (const auto& [file, bytes] : contents) program.Write(file, bytes);
    }
    /// Kills a run so long after it began to write. Returns whether it was still writing then.
    bool Kill(const Case& c, std::chrono::duration<double> delay) const {
        Child child(program, c.command);
        while (!child.HasEnded() && !child.IsWriting()) continue;
        std::this_thread::sleep_for(delay);
        const bool wasWriting = child.Stop() && child.IsWriting();
        child.Kill();
        return wasWriting;
    }

    tests::Program program;
};

TEST_F(Killed, InWritingLeavesTheOldOrTheNew) {
    const Case cases[] = {
        {{"set", "bound.json", "Listing.Title=Place"}, {"bound.json"}},
        {{"column", "add", "plain.json", "More"}, {"plain.json"}},
        {{"generate", "plain.json"}, {"plain.json"}},
        {{"draw", "bound.json", "--page", "2"}, {"bound.json"}},
        {{"make", "names.dbf", "-o", "m.pdf", "--document", "m.json"}, {"m.pdf", "m.json"}},
        {{"export", "bound.json", "-o", "e.pdf"}, {"e.pdf", "bound.json"}},
        {{"export", "bound.json", "-o", "e.png", "--pages", "1-2"}, {"e-1.png", "e-2.png"}},
        {{"export", "bound.json", "-o", "e.svg", "--pages", "1-2"}, {"e-1.svg", "e-2.svg"}},
    };
    constexpr double kWriting = 0.2;  // Share of a run that goes into writing, about.
    std::mt19937 random(7);
    std::uniform_real_distribution<> part(0, kWriting);
    int writing = 0;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.command[0] + ' ' + c.files[0]);
        for (const auto& file : c.files)
            if (!program.Exists(file))
                program.Write(file, file.ends_with(".json") ? program.Read("plain.json")
                                                            : "what stood there before");
        const auto before = Read(c.files);
        const auto start = Clock::now();
        program.Done(c.command);
        const auto duration = Clock::now() - start;
        const auto after = Read(c.files);
        ASSERT_NE(before, after);
        for (int i = 0; i < kKillsPerCommand; ++i) {
            Restore(before);
            writing += Kill(c, duration * part(random)) ? 1 : 0;
            const auto left = Read(c.files);
            for (const auto& [file, bytes] : left)
                EXPECT_TRUE(bytes == before.at(file) || bytes == after.at(file))
                    << file << " has " << bytes.size() << " bytes";
            // A column that was added cannot be added again.
            const bool isDone = c.command[0] == "column" && left == after;
            const auto next = program.Run(c.command);
            EXPECT_EQ(next.status, isDone ? 2 : 0) << next.errors;
            EXPECT_EQ(Read(c.files), after);
            if (HasFailure()) return;
        }
        Restore(before);
    }
    EXPECT_GE(writing, kKillsPerCommand) << "kills that fell while a file was being written";
}

}  // namespace
