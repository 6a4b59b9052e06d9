#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>

#include "app/Program.h"

/// Files that may not grow, folders that may not be written to, and tables that change meanwhile:
/// the program says what and where, leaves everything as it was, and works again afterwards.
namespace {

namespace fs = std::filesystem;
using tests::Child;
using tests::Contains;
using Action = std::function<void()>;
using Words = std::vector<std::string>;

constexpr uid_t kNobody = 65534;
constexpr int kNoProgram = 127;  // What a child answers that cannot be started.

/// Something that stands in the way of a command until it is cleared.
struct Obstacle {
    const char* what;
    Action put = [] {};
    Action clear = [] {};
    tests::Preparation prepare = [] {};
};

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
        for (const auto& entry : fs::recursive_directory_iterator(program.File(""))) {
            const std::string name = fs::relative(entry, program.File(""));
            if (entry.is_regular_file()) files[name] = program.Bytes(name);
        }
        return files;
    }
    /// The command is refused in these words and changes nothing, and does its work afterwards.
    void Expect(const Obstacle& obstacle, const Words& command, const Words& words) const {
        SCOPED_TRACE(obstacle.what + (": " + command[0]) + ' ' + words[0]);
        obstacle.put();
        const auto before = Files();
        const auto outcome = program.Run(command, obstacle.prepare);
        const auto after = Files();
        obstacle.clear();
        if (outcome.status == kNoProgram) {
            std::printf("left out, as the program may not be run then: %s\n", obstacle.what);
            return;
        }
        EXPECT_EQ(outcome.status, 1);
        for (const auto& word : words) EXPECT_TRUE(Contains(outcome.errors, word));
        EXPECT_TRUE(before == after);
        program.Done(command);
    }
    void Move(const std::string& from, const std::string& to) const {
        fs::rename(program.File(from), program.File(to));
    }

    tests::Program program;
    const Words set = {"set", "d.json", "Listing.Title=Place"};
    const Words draw = {"draw", "d.json", "--page", "2"};
    const Words make = {"make",       "names.dbf", "-o",          "o.pdf",
                        "--document", "d.json",    "--page-size", "5x5"};
    const Words exportPdf = {"export", "d.json", "-o", "o.pdf"};
    const Words exportPng = {"export", "d.json", "-o", "o.png"};
};

TEST_F(World, FilesThatCannotBeWrittenStayAsTheyAre) {
    const Obstacle small{.what = "small files", .prepare = [] {
                             const rlimit limit{3000, 3000};
                             ::setrlimit(RLIMIT_FSIZE, &limit);
                         }};
    const std::string tooLarge = "cannot be written: File too large.";
    Expect(small, set, {"\"d.json\"", tooLarge});
    Expect(small, draw, {"\"d.json\"", tooLarge});
    Expect(small, make, {"\"d.json\"", tooLarge});
    Expect(small, exportPdf, {"\"o.pdf\"", tooLarge});
    Expect(small, exportPng, {"\"o-1.png\"", tooLarge});

    const Obstacle locked{
        .what = "a locked folder",
        .put = [&] { fs::permissions(program.File(""), fs::perms(0555)); },
        .clear = [&] { fs::permissions(program.File(""), fs::perms(0755)); },
        .prepare =
            [] {
                if (::geteuid() == 0 && (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0))
                    ::_exit(kNoProgram);
            }};
    const std::string denied = "cannot be written: Permission denied.";
    Expect(locked, set, {"\"d.json\"", denied});
    Expect(locked, make, {"\"d.json\"", denied});
    Expect(locked, exportPdf, {"\"o.pdf\"", denied});
    Expect(locked, exportPng, {"\"o-1.png\"", denied});

    // The sheets before it are not written either.
    const Obstacle folder{.what = "a folder",
                          .put = [&] { fs::create_directory(program.File("f-3.png")); },
                          .clear = [&] { fs::remove(program.File("f-3.png")); }};
    Expect(folder, {"export", "d.json", "-o", "f.png"}, {"\"f-3.png\"", "is a folder"});
}

// A table that others work on during a run gives the index of what it was or of what it is, or is
// refused. Half of each is never printed.
TEST_F(World, TablesThatChangeDuringARunAreNeverMixed) {
    constexpr int kListings = 30000;
    constexpr int kMoments = 6;
    constexpr auto kInPlace = std::ios::in | std::ios::out | std::ios::binary;
    const std::vector<std::string> command = {"make", "long.dbf", "-o", "long.pdf"};
    program.WriteLongTable("long.dbf", kListings);
    const std::string old = program.Bytes("long.dbf");
    std::string fresh = old;
    for (auto& byte : fresh) byte = byte == 'N' ? 'M' : byte;
    const std::string half = old.substr(0, old.size() / 2);
    const auto indexOf = [&](const std::string& bytes) {
        program.Write("long.dbf", bytes);
        program.Done(command);
        return program.Bytes("long.pdf");
    };
    const std::string ofHalf = indexOf(half);
    const std::string ofFresh = indexOf(fresh);
    const auto start = std::chrono::steady_clock::now();
    const std::string ofOld = indexOf(old);
    const auto time = std::chrono::steady_clock::now() - start;

    struct Change {
        const char* what;
        Action act;
        const std::string& becomes;
    };
    const std::string table = program.File("long.dbf");
    const Change changes[] = {
        {"removed", [&] { fs::remove(table); }, ofOld},
        {"cut", [&] { fs::resize_file(table, half.size()); }, ofHalf},
        {"replaced", [&] { Move("fresh.dbf", "long.dbf"); }, ofFresh},
        {"written over", [&] { std::fstream(table, kInPlace) << fresh; }, ofFresh},
    };
    std::mt19937 random(11);
    int finished = 0;
    int refused = 0;
    for (const Change& change : changes) {
        for (int i = 0; i < kMoments; ++i) {
            program.Write("long.dbf", old);
            program.Write("fresh.dbf", fresh);
            fs::remove(program.File("long.pdf"));
            Child child(program, command);
            // Most of the first half goes into reading.
            std::uniform_real_distribution<> moment(0, 0.5);
            std::this_thread::sleep_for(time * moment(random));
            change.act();
            const auto outcome = child.End();
            if (outcome.status == 0) {
                ++finished;
                const auto made = program.Bytes("long.pdf");
                EXPECT_TRUE(made == ofOld || made == change.becomes) << change.what;
            } else {
                ++refused;
                EXPECT_EQ(outcome.status, 1) << change.what;
                EXPECT_TRUE(Contains(outcome.errors, "long.dbf"));
                EXPECT_FALSE(program.Exists("long.pdf")) << change.what;
            }
        }
    }
    std::printf("changed during a run: %d finished, %d refused\n", finished, refused);
    EXPECT_GE(finished, 1);
    EXPECT_GE(refused, 1);
}

}  // namespace
