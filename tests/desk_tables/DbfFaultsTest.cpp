#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <sys/stat.h>
#include <vector>

#include "desk/tables/DbfTable.h"
#include "host/Failure.h"
#include "support/DbfBuilder.h"
#include "support/TemporaryFolder.h"

namespace desk {
namespace {

using support::DbfBuilder;

DbfBuilder TenRecords() {
    DbfBuilder builder({{"LISTING", 'C', 20}, {"PAGE", 'N', 4}});
    for (int i = 1; i <= 10; ++i) builder.Row({"Street " + std::to_string(i), std::to_string(i)});
    return builder;
}
constexpr std::size_t kHeader = 32 + 2 * 32 + 1;
constexpr std::size_t kRecord = 25;

std::string Refusal(const std::string& path) {
    try {
        const DbfTable table(path);
        return "opened";
    } catch (const host::Failure& failure) {
        return failure.description;
    }
}

struct Fault {
    std::string name;
    std::function<void(std::string&)> damage;
    std::string sentence;  ///< Part of the refusal or of the warning.
    int records;  ///< Readable ones; -1 where the table is refused, -2 for ten whose numbers
                  ///< are cut.
};

const std::vector<Fault> kFaults = {
    {"nothing", [](std::string&) {}, "", 10},
    {"empty", [](std::string& b) { b.clear(); }, "is empty", -1},
    {"text", [](std::string& b) { b = std::string(600, 'C') + "\n"; }, "is not a dBase table", -1},
    {"short", [](std::string& b) { b.resize(20); }, "is not a dBase table", -1},
    {"zeros", [](std::string& b) { b.assign(500, '\0'); }, "is not a dBase table", -1},
    {"cut header", [](std::string& b) { b.resize(80); }, "is damaged: it ends within", -1},
    {"header alone", [](std::string& b) { b.resize(kHeader); },
     "announces 10 records and holds none", -1},
    {"cut record", [](std::string& b) { b.resize(kHeader + 4 * kRecord + 7); },
     "announces 10 records, but the file holds 4: 6 are missing", 4},
    {"cut last record", [](std::string& b) { b.resize(b.size() - 3); }, "1 is missing", 9},
    {"no end mark", [](std::string& b) { b.pop_back(); }, "", 10},
    {"huge count", [](std::string& b) { DbfBuilder::Put(b, 4, 4, 0xFFFFFFFF); },
     "4294967285 are missing", 10},
    {"low count", [](std::string& b) { DbfBuilder::Put(b, 4, 4, 7); }, "3 records beyond", 7},
    {"no count", [](std::string& b) { DbfBuilder::Put(b, 4, 4, 0); }, "10 records beyond", 0},
    {"long header", [](std::string& b) { DbfBuilder::Put(b, 8, 2, 5000); },
     "records begin at byte 97", 10},
    {"header off by three", [](std::string& b) { DbfBuilder::Put(b, 8, 2, kHeader + 3); },
     "records begin at byte 97", 10},
    {"no header length", [](std::string& b) { DbfBuilder::Put(b, 8, 2, 0); },
     "records begin at byte 97", 10},
    {"no record length", [](std::string& b) { DbfBuilder::Put(b, 10, 2, 0); },
     "its records have 25", 10},
    {"long record", [](std::string& b) { DbfBuilder::Put(b, 10, 2, 30000); }, "its records have 25",
     10},
    {"long field", [](std::string& b) { b[32 + 16] = '\xC8'; },
     "fields take 205 bytes, but its header gives a record 25", -1},
    {"short field", [](std::string& b) { b[32 + 32 + 16] = '\x03'; },
     "1 byte of each record belongs to no field", -2},
    {"padded header",
     [](std::string& b) {
         b.insert(kHeader, 31, '\0');
         DbfBuilder::Put(b, 8, 2, kHeader + 31);
     },
     "", 10},
    {"no terminator",
     [](std::string& b) {
         b.erase(kHeader - 1, 1);
         DbfBuilder::Put(b, 8, 2, kHeader - 1);
     },
     "", 10}};

TEST(DbfFaults, AreRefusedOrToldByOneSentence) {
    const support::TemporaryFolder folder;
    for (const Fault& fault : kFaults) {
        SCOPED_TRACE(fault.name);
        std::string bytes = TenRecords().Bytes();
        fault.damage(bytes);
        const std::string path = folder.Write("a.dbf", bytes);
        if (fault.records == -2) {
            EXPECT_NE(DbfTable(path).Warnings().at(0).find(fault.sentence), std::string::npos);
            EXPECT_EQ(DbfTable(path).LiveRecords(), 10);
            continue;
        }
        if (fault.records < 0) {
            EXPECT_TRUE(Refusal(path).starts_with(path + " is ")) << Refusal(path);
            EXPECT_NE(Refusal(path).find(fault.sentence), std::string::npos) << Refusal(path);
            continue;
        }
        DbfTable table(path);
        const auto cursor = table.Search(nullptr, true);
        int count = 0;
        while (const auto row = cursor->NextRow()) {
            ++count;
            EXPECT_EQ(std::get<std::string>(row->Value(0)), "Street " + std::to_string(count));
            EXPECT_EQ(std::get<std::int32_t>(row->Value(1)), count);
        }
        EXPECT_EQ(count, fault.records);
        EXPECT_EQ(table.LiveRecords(), fault.records);
        ASSERT_EQ(table.Warnings().size(), fault.sentence.empty() ? 0U : 1U);
        if (!fault.sentence.empty()) {
            EXPECT_NE(table.Warnings()[0].find(fault.sentence), std::string::npos)
                << table.Warnings()[0];
        }
    }
}

TEST(DbfFaults, OfThePathAreTold) {
    const support::TemporaryFolder folder;
    EXPECT_EQ(Refusal(folder.File("no.dbf")), "There is no file " + folder.File("no.dbf") + ".");
    EXPECT_EQ(Refusal(folder.Path()), folder.Path() + " is a folder, not a table.");
    ASSERT_EQ(mkfifo(folder.File("pipe.dbf").c_str(), 0600), 0);
    EXPECT_EQ(Refusal(folder.File("pipe.dbf")),
              folder.File("pipe.dbf") + " is not a regular file.");
}

/// Whatever the header says, the table is refused or gives no more than the file can hold.
TEST(DbfFaults, RandomDamageIsSurvived) {
    const support::TemporaryFolder folder;
    std::mt19937 random(20240117);
    const auto draw = [&](std::size_t bound) {
        return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random);
    };
    const auto start = std::chrono::steady_clock::now();
    int opened = 0;
    for (int round = 0; round < 3000; ++round) {
        std::string bytes = TenRecords().Bytes();
        for (std::size_t i = draw(4) + 1; i > 0; --i)
            bytes[draw(round % 3 == 0 ? bytes.size() : kHeader)] = static_cast<char>(draw(256));
        if (draw(4) == 0) bytes.resize(draw(bytes.size()) + 1);
        const std::string path = folder.Write("a.dbf", bytes);
        try {
            DbfTable table(path);
            ++opened;
            std::size_t count = 0;
            const auto cursor = table.Search(nullptr, true);
            while (const auto row = cursor->NextRow()) {
                ++count;
                for (std::size_t f = 0; f < table.DbfFields().size(); ++f)
                    row->Value(static_cast<std::int32_t>(f));
            }
            ASSERT_LE(count, bytes.size());
        } catch (const host::Failure& failure) {
            ASSERT_NE(failure.description.find(path), std::string::npos);
        }
    }
    EXPECT_GT(opened, 100);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

}  // namespace
}  // namespace desk
