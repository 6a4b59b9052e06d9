#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <random>
#include <thread>

#include "app/Program.h"

/// Whoever pulls the plug in the midst of a save or an export finds the old file or the new one.
namespace {

using tests::Child;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;
using Contents = std::map<std::string, std::string>;  ///< By name of a file.

constexpr int kKillsPerCommand = 26;

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
        for (const auto& file : files) contents[file] = program.Bytes(file);
        return contents;
    }
    void Restore(const Contents& contents) const {
        for (const auto& [file, bytes] : contents) program.Write(file, bytes);
    }

    // Of the quickest of a few runs: where others use the machine, kills then fall late rarely.
    Seconds Duration(const Case& c, const Contents& before) const {
        Seconds best = Seconds::max();
        for (int i = 0; i < 4; ++i) {
            Restore(before);
            const auto start = Clock::now();
            program.Done(c.command);
            best = std::min(best, Seconds(Clock::now() - start));
        }
        return best;
    }
    /// So long after its start, or after it began to write.
    void Kill(const Case& c, bool inWriting, Seconds delay) {
        Child child(program, c.command);
        while (inWriting && !child.HasEnded() && !child.IsWriting()) continue;
        std::this_thread::sleep_for(delay);
        ++kills;
        if (child.Stop()) {
            ++running;
            writing += child.IsWriting() ? 1 : 0;
        }
        child.Kill();
    }

    tests::Program program;
    int kills = 0;
    int running = 0;  ///< Of a process that had not ended.
    int writing = 0;  ///< With a file begun that is not in its place yet.
    int whole = 0;    ///< After something was written.
};

TEST_F(Killed, AtAnyMomentLeavesTheOldOrTheNew) {
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
    constexpr double kWriting = 0.2;  // Of the course, about.
    std::mt19937 random(7);
    std::uniform_real_distribution<> part(0, 1);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.command[0] + ' ' + c.files[0]);
        for (const auto& file : c.files)
            if (!program.Exists(file)) program.Write(file, "what stood there before");
        const auto before = Read(c.files);
        const Seconds duration = Duration(c, before);
        const auto after = Read(c.files);
        ASSERT_NE(before, after);
        for (int i = 0; i < kKillsPerCommand; ++i) {
            Restore(before);
            // Half of them over the whole course, half from where the writing begins.
            const bool inWriting = i % 2 != 0;
            const Seconds delay = duration * part(random) * (inWriting ? kWriting : 1);
            Kill(c, inWriting, delay);
            const auto left = Read(c.files);
            whole += left != before ? 1 : 0;
            for (const auto& [file, bytes] : left)
                EXPECT_TRUE(bytes == before.at(file) || bytes == after.at(file))
                    << "killed after " << delay.count() << " s: " << file << " has " << bytes.size()
                    << " bytes";
            const auto next = program.Run(c.command);
            EXPECT_EQ(next.status, c.command[0] == "column" && next.status == 2 ? 2 : 0)
                << next.errors;
            EXPECT_EQ(Read(c.files), after);
            if (HasFailure()) return;
        }
        Restore(before);
    }
    std::printf(
        "%d kills: %d of a running process, %d while a file was being written, %d with "
        "something new in place\n",
        kills, running, writing, whole);
    EXPECT_GE(running, kills / 3);
    EXPECT_GE(writing, kills / 10);
    EXPECT_GE(whole, 1);
}

}  // namespace
