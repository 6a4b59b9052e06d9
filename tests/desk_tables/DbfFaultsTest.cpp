#include <chrono>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <vector>

#include "desk/tables/DbfTable.h"
#include "support/DbfBuilder.h"
#include "support/FailureOf.h"
#include "support/TemporaryFolder.h"

namespace desk {
namespace {

namespace fs = std::filesystem;
using support::DbfBuilder;

DbfBuilder TenRecords() {
    DbfBuilder builder({{"LISTING", 'C', 20}, {"PAGE", 'N', 4}, {"NOTE", 'C', 2}});
    for (int i = 1; i <= 10; ++i) builder.Row({"Street " + std::to_string(i), std::to_string(i)});
    return builder;
}
constexpr std::size_t kHeader = 32 + 3 * 32 + 1;
constexpr std::size_t kRecord = 27;

std::string Refusal(const std::string& path) {
    return support::FailureOf([&] { const DbfTable table(path); }).description;
}

const auto Put = DbfBuilder::Put;

// Name, damage, part of the refusal or of the warning, and the readable records, -1 where the table
// is refused.
const std::tuple<const char*, void (*)(std::string&), std::string, int> kFaults[] = {
    {"nothing", [](std::string&) {}, "", 10},
    {"empty", [](std::string& b) { b.clear(); }, "is empty", -1},
    {"text", [](std::string& b) { b = std::string(600, 'C') + "\n"; }, "is not a dBase table", -1},
    {"short", [](std::string& b) { b.resize(20); }, "is not a dBase table", -1},
    {"zeros", [](std::string& b) { b.assign(500, '\0'); }, "is not a dBase table", -1},
    {"cut header", [](std::string& b) { b.resize(80); }, "is damaged: it ends within", -1},
    {"header alone", [](std::string& b) { b.resize(kHeader); }, "10 records and holds none", -1},
    {"cut record", [](std::string& b) { b.resize(kHeader + 4 * kRecord + 7); },
     "announces 10 records, but the file holds 4: 6 are missing", 4},
    {"cut last record", [](std::string& b) { b.resize(b.size() - 3); }, "1 is missing", 9},
    {"no end mark", [](std::string& b) { b.pop_back(); }, "", 10},
    {"huge count", [](std::string& b) { Put(b, 4, 4, 0xFFFFFFFF); }, "4294967285 are missing", 10},
    {"low count", [](std::string& b) { Put(b, 4, 4, 7); }, "3 records beyond", 7},
    {"no count", [](std::string& b) { Put(b, 4, 4, 0); }, "10 records beyond", 0},
    {"long header", [](std::string& b) { Put(b, 8, 2, 5000); }, "records begin at byte 129", 10},
    {"header off by three", [](std::string& b) { Put(b, 8, 2, kHeader + 3); }, "at byte 129", 10},
    {"no header length", [](std::string& b) { Put(b, 8, 2, 0); }, "at byte 129", 10},
    {"no record length", [](std::string& b) { Put(b, 10, 2, 0); }, "its records have 27", 10},
    {"long record", [](std::string& b) { Put(b, 10, 2, 30000); }, "its records have 27", 10},
    {"long field", [](std::string& b) { Put(b, 32 + 16, 1, 200); },
     "fields take 207 bytes, but its header gives a record 27", -1},
    {"short field", [](std::string& b) { Put(b, 32 + 2 * 32 + 16, 1, 1); },
     "1 byte of each record belongs to no field", 10},
    {"padded header", [](std::string& b) { Put(b.insert(kHeader, 31, '\0'), 8, 2, kHeader + 31); },
     "", 10},
    {"no terminator", [](std::string& b) { Put(b.erase(kHeader - 1, 1), 8, 2, kHeader - 1); }, "",
     10}};

TEST(DbfFaults, AreRefusedOrToldByOneSentence) {
    const support::TemporaryFolder folder;
    for (const auto& [name, damage, sentence, records] : kFaults) {
        SCOPED_TRACE(name);
        std::string bytes = TenRecords().Bytes();
        damage(bytes);
        const std::string path = folder.Write("a.dbf", bytes);
        if (records < 0) {
            EXPECT_TRUE(Refusal(path).starts_with(path + " is ")) << Refusal(path);
            EXPECT_NE(Refusal(path).find(sentence), std::string::npos) << Refusal(path);
            continue;
        }
        DbfTable table(path);
        const auto cursor = table.Search(nullptr, true);
        int count = 0;
        while (const auto row = cursor->NextRow()) {
            ++count;
            EXPECT_EQ(row->Value(0), host::Variant("Street " + std::to_string(count)));
            EXPECT_EQ(row->Value(1), host::Variant(count));
        }
        EXPECT_EQ(count, records);
        EXPECT_EQ(table.LiveRecords(), records);
        EXPECT_EQ(table.Notes().All().size(), sentence.empty() ? 0U : 1U);
        for (const auto& warning : table.Notes().All())
            EXPECT_NE(warning.find(sentence), std::string::npos) << warning;
    }
}

TEST(DbfFaults, OfThePathAreTold) {
    const support::TemporaryFolder folder;
    EXPECT_EQ(Refusal(folder.Path()), folder.Path() + " is a folder, not a table.");
    const std::string pipe = folder.File("pipe.dbf");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(Refusal(pipe), pipe + " is not a regular file.");
}

/// Rows from before and after a change of the file are never all that is told.
TEST(DbfFaults, OfATableThatOthersChangeAreTold) {
    constexpr int kRecords = 60'000;  // More than is read at a time.
    DbfBuilder old({{"F", 'C', 20}});
    DbfBuilder fresh = old;
    for (int i = 0; i < kRecords; ++i) {
        old.Row({"old"});
        fresh.Row({"fresh"});
    }
    const support::TemporaryFolder folder;
    const std::string path = folder.File("a.dbf");
    using Change = std::function<void()>;
    const std::tuple<const char*, Change, const char*> changes[] = {
        {"removed", [&] { fs::remove(path); }, ""},
        {"replaced", [&] { fs::rename(folder.Write("b.dbf", fresh.Bytes()), path); }, ""},
        {"cut", [&] { fs::resize_file(path, fs::file_size(path) / 2); }, " became shorter"},
        {"written over", [&] { fresh.Write(path); }, " was changed"}};
    for (const auto& [what, change, told] : changes) {
        SCOPED_TRACE(what);
        old.Write(path);
        fs::last_write_time(path, fs::last_write_time(path) - std::chrono::hours(1));
        DbfTable table(path);
        const auto cursor = table.Search(nullptr, true);
        int rows = 0;
        int oldRows = 0;
        const auto read = [&, act = change] {
            while (const auto row = cursor->NextRow()) {
                oldRows += row->Value(0) == host::Variant("old") ? 1 : 0;
                if (++rows == kRecords / 4) act();
            }
        };
        const std::string failure = support::FailureOf(read).description;
        EXPECT_NE(failure.find(told), std::string::npos) << failure;
        EXPECT_EQ(failure.empty(), oldRows == kRecords) << failure;
    }
}

}  // namespace
}  // namespace desk
