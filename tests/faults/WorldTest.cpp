#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <sys/mount.h>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>

#include "faults/Child.h"

/// A full disk, folders that may not be written to, and files that go or change meanwhile: the
/// program says what and where, leaves everything as it was, and works again afterwards.
namespace {

namespace fs = std::filesystem;
using faults::Child;

constexpr uid_t kNobody = 65534;
constexpr int kNoProgram = 127;  // What a child answers that cannot be started.

constexpr char kBook[] = R"({"currentTemplate": "index", "books": [{"key": "atlas", "sections": [
   {"key": "back", "name": "Index", "startPage": 40, "pages": ["index$1"],
    "templates": [{"key": "index", "name": "Gazetteer", "layout": []}]}]}]})";

using Action = std::function<void()>;

struct Case {
    const char* what;
    std::vector<std::string> command;
    Action hinder, free;
    Child::Preparation prepare;
    std::vector<const char*> words;  ///< On standard error.
};

class World : public testing::Test {
protected:
    World() {
        program.WriteLongTable("names.dbf", 300);
        program.Write("book.json", kBook);
        program.Done({"make", "names.dbf", "-o", "o.pdf", "--document", "d.json", "--book",
                      "book.json", "--page-size", "5x5"});
        program.Done({"export", "d.json", "-o", "o.png", "--pages", "1-2"});
        program.Done({"export", "d.json", "-o", "o.svg", "--pages", "1-2"});
    }

    /// Name and content of every file of the folder but those hidden.
    std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(program.File(".")))
            if (entry.is_regular_file() && !entry.path().filename().string().starts_with(".err"))
                files[entry.path().filename()] = program.Bytes(entry.path().filename());
        return files;
    }
    void Expect(const Case& c) const {
        SCOPED_TRACE(c.what + (": " + c.command[0]));
        if (c.hinder) c.hinder();
        const auto before = Files();
        const auto outcome = faults::RunPrepared(program, c.command, c.prepare);
        const auto after = Files();
        if (c.free) c.free();
        if (outcome.status == kNoProgram) {
            std::printf("left out, as the program may not be run then: %s\n", c.what);
            return;
        }
        EXPECT_EQ(outcome.status, 1);
        for (const char* word : c.words)
            EXPECT_NE(outcome.errors.find(word), std::string::npos) << outcome.errors;
        EXPECT_TRUE(before == after);
        program.Done(c.command);
    }
    void Move(const std::string& from, const std::string& to) const {
        fs::rename(program.File(from), program.File(to));
    }

    tests::Program program;
};

TEST_F(World, StandingInTheWayIsToldAndLosesNothing) {
    const Action none;
    const Child::Preparation nothing = [] {};
    const Child::Preparation smallFiles = [] {
        const rlimit limit{3000, 3000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    };
    const Child::Preparation asNobody = [] {
        if (::geteuid() == 0 && (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0))
            ::_exit(kNoProgram);
    };
    const Action lock = [&] { fs::permissions(program.File("."), fs::perms(0555)); };
    const Action unlock = [&] { fs::permissions(program.File("."), fs::perms(0755)); };
    const auto hide = [&](const char* name) { return [=, this] { Move(name, "hidden"); }; };
    const auto show = [&](const char* name) { return [=, this] { Move("hidden", name); }; };
    const Action folders = [&] {
        for (const char* name : {"f.pdf", "f-3.png"}) {
            fs::remove(program.File(name));
            fs::create_directory(program.File(name));
        }
    };
    const Action noFolders = [&] {
        for (const char* name : {"f.pdf", "f-3.png"}) fs::remove(program.File(name));
    };
    const Action full = [&] { fs::create_symlink("/dev/full", program.File("full.pdf")); };
    const Action notFull = [&] { fs::remove(program.File("full.pdf")); };

    const std::vector<std::string> set = {"set", "d.json", "Listing.Title=Place"};
    const std::vector<std::string> draw = {"draw", "d.json", "--page", "2"};
    const std::vector<std::string> exportPdf = {"export", "d.json", "-o", "o.pdf"};
    const std::vector<std::string> exportPng = {"export", "d.json", "-o", "o.png"};
    const std::vector<std::string> make = {"make",       "names.dbf", "-o",          "o.pdf",
                                           "--document", "d.json",    "--page-size", "5x5"};
    const char* const tooLarge = "cannot be written: File too large.";
    const char* const denied = "cannot be written: Permission denied.";
    for (const Case& c : {
             Case{"small files", set, none, none, smallFiles, {"\"d.json\"", tooLarge}},
             {"small files", draw, none, none, smallFiles, {"\"d.json\"", tooLarge}},
             {"small files", make, none, none, smallFiles, {"\"d.json\"", tooLarge}},
             {"small files", exportPdf, none, none, smallFiles, {"\"o.pdf\"", tooLarge}},
             {"small files", exportPng, none, none, smallFiles, {"\"o-1.png\"", tooLarge}},
             {"locked folder", set, lock, unlock, asNobody, {"\"d.json\"", denied}},
             {"locked folder", make, lock, unlock, asNobody, {"\"d.json\"", denied}},
             {"locked folder", exportPdf, lock, unlock, asNobody, {"\"o.pdf\"", denied}},
             {"locked folder", exportPng, lock, unlock, asNobody, {"\"o-1.png\"", denied}},
             {"a folder",
              {"export", "d.json", "-o", "f.png"},
              folders,
              noFolders,
              nothing,
              {"\"f-3.png\"", "is a folder"}},
             {"a folder",
              {"export", "d.json", "-o", "f.pdf"},
              folders,
              noFolders,
              nothing,
              {"\"f.pdf\"", "is a folder"}},
             {"full device",
              {"export", "d.json", "-o", "full.pdf"},
              full,
              notFull,
              nothing,
              {"\"full.pdf\"", "No space left on device"}},
             {"no table",
              exportPdf,
              hide("names.dbf"),
              show("names.dbf"),
              nothing,
              {"names.dbf", "does not exist"}},
             {"no table", make, hide("names.dbf"), show("names.dbf"), nothing, {"names.dbf"}},
             {"no map book",
              {"make", "names.dbf", "-o", "o.pdf", "--book", "book.json"},
              hide("book.json"),
              show("book.json"),
              nothing,
              {"book.json", "no such file"}},
         })
        Expect(c);
}

// The documents and sheets of a small disk of its own.
TEST_F(World, FullDiskIsToldAndLosesNothing) {
    const std::string disk = program.File("disk");
    fs::create_directory(disk);
    if (::mount("none", disk.c_str(), "tmpfs", 0, "size=1m") != 0)
        GTEST_SKIP() << "no disk may be mounted here";
    const std::string filler = disk + "/filler";
    for (const char* name : {"d.json", "book.json", "o.pdf", "o-1.png", "o-2.png"})
        fs::copy_file(program.File(name), disk + '/' + name);
    const Action fill = [&] {
        std::ofstream(filler, std::ios::binary) << std::string(2 << 20, 'x');
    };
    const Action empty = [&] { fs::remove(filler); };
    const char* const reason = "cannot be written: No space left on device.";
    for (const Case& c : {
             Case{"disk",
                  {"set", "disk/d.json", "Listing.Title=Place"},
                  fill,
                  empty,
                  [] {},
                  {"\"disk/d.json\"", reason}},
             {"disk",
              {"draw", "disk/d.json", "--page", "2"},
              fill,
              empty,
              [] {},
              {"\"disk/d.json\"", reason}},
             {"disk",
              {"export", "d.json", "-o", "disk/o.pdf"},
              fill,
              empty,
              [] {},
              {"\"disk/o.pdf\"", reason}},
             {"disk",
              {"export", "d.json", "-o", "disk/o.png", "--pages", "1-2"},
              fill,
              empty,
              [] {},
              {"\"disk/o-1.png\"", reason}},
         })
        Expect(c);
    ::umount(disk.c_str());
}

// A table that others work on during a run gives the index of what it was or of what it is, or is
// refused. Half of each is never printed.
TEST_F(World, TablesThatChangeDuringARunAreNeverMixed) {
    constexpr int kListings = 30000;
    constexpr int kMoments = 6;
    const std::vector<std::string> command = {"make", "long.dbf", "-o", "long.pdf"};
    program.WriteLongTable("long.dbf", kListings);
    const std::string old = program.Bytes("long.dbf");
    std::string fresh = old;
    for (auto& byte : fresh) byte = byte == 'N' ? 'M' : byte;
    const std::string half = old.substr(0, old.size() / 2);
    const auto make = [&](const std::string& bytes) {
        program.Write("long.dbf", bytes);
        const auto start = std::chrono::steady_clock::now();
        program.Done(command);
        const auto time = std::chrono::steady_clock::now() - start;
        return std::pair(program.Bytes("long.pdf"), time);
    };
    const std::string ofHalf = make(half).first;
    const std::string ofFresh = make(fresh).first;
    const auto [ofOld, time] = make(old);

    const auto patch = [&](const std::string& bytes) {
        std::fstream(program.File("long.dbf"), std::ios::in | std::ios::out | std::ios::binary)
            << bytes;
    };
    struct Change {
        const char* what;
        Action act;
        const std::string& becomes;
    };
    const Change changes[] = {
        {"removed", [&] { fs::remove(program.File("long.dbf")); }, old},
        {"cut", [&] { fs::resize_file(program.File("long.dbf"), half.size()); }, ofHalf},
        {"replaced",
         [&] {
             program.Write("fresh.dbf", fresh);
             Move("fresh.dbf", "long.dbf");
         },
         ofFresh},
        {"written over", [&] { patch(fresh); }, ofFresh},
    };
    std::mt19937 random(11);
    int finished = 0;
    int refused = 0;
    for (const Change& change : changes) {
        for (int i = 0; i < kMoments; ++i) {
            program.Write("long.dbf", old);
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
                EXPECT_NE(outcome.errors.find("long.dbf"), std::string::npos) << outcome.errors;
                EXPECT_FALSE(program.Exists("long.pdf")) << change.what;
            }
        }
    }
    std::printf("changed during a run: %d finished, %d refused\n", finished, refused);
    EXPECT_GE(finished, 1);
    EXPECT_GE(refused, 1);
}

}  // namespace
