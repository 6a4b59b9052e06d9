#include <gtest/gtest.h>

#include "app/Program.h"

namespace tests {
namespace {

TEST(DamagedTables, GiveWhatIsUnmistakableOrNothing) {
    const Program program;
    const std::string good = program.Bytes("streets.dbf");  // Four records of 53 bytes.
    const auto with = [&](std::size_t offset, std::size_t count, std::size_t value) {
        auto bytes = good;
        support::DbfBuilder::Put(bytes, offset, count, value);
        return bytes;
    };
    struct Case {
        const char* what;
        std::string bytes;
        int records;           ///< Negative: refused.
        const char* sentence;  ///< A part of the warning or of the refusal.
    };
    for (const Case& c : {Case{"empty", "", -1, "is empty"},
                          Case{"text", std::string(300, 'a'), -1, "not a dBase table"},
                          Case{"short", good.substr(0, 20), -1, "too short"},
                          Case{"half a header", good.substr(0, 100), -1, "header"},
                          Case{"most records", with(4, 4, 0xFFFFFFFF), 4, "4294967291 are missing"},
                          Case{"few records", with(4, 4, 3), 3, "1 record"},
                          Case{"long header", with(8, 2, 60000), 4, "60000"},
                          Case{"long records", with(10, 2, 65535), 4, "65535"},
                          Case{"no record length", with(10, 2, 0), 4, "0 bytes"},
                          Case{"cut", good.substr(0, good.size() - 20), 3, "1 is missing"}}) {
        program.Write("bad.dbf", c.bytes);
        const auto made = program.Run({"make", "bad.dbf", "-o", "o.pdf"});
        EXPECT_EQ(made.status, c.records < 0 ? 1 : 0) << c.what << '\n' << made.errors;
        EXPECT_EQ(program.Exists("o.pdf"), c.records >= 0) << c.what;
        EXPECT_NE(made.errors.find("bad.dbf"), std::string::npos) << c.what << '\n' << made.errors;
        EXPECT_NE(made.errors.find(c.sentence), std::string::npos) << c.what << '\n' << made.errors;
        const auto table = program.Run({"table", "bad.dbf", "--json"});
        EXPECT_EQ(table.status, made.status) << c.what;
        if (c.records < 0) continue;
        EXPECT_EQ(table.Json()["records"], c.records) << c.what;
        EXPECT_EQ(table.Json()["rows"].size(), static_cast<std::size_t>(c.records)) << c.what;
        EXPECT_EQ(table.Json()["warnings"].size(), 1U) << c.what;
        program.Shell("rm o.pdf");
    }
}

TEST(DamagedDocuments, AreRefusedAndStayAsTheyAre) {
    const Program program;
    program.Done({"new", "d.json", "--listing-database", "streets.dbf"});
    const std::string good = program.Bytes("d.json");
    const auto with = [&](const std::string& old, const std::string& fresh) {
        auto bytes = good;
        return bytes.replace(bytes.find(old), old.size(), fresh);
    };
    struct Case {
        const char* what;
        std::string bytes;
        const char* sentence;
    };
    for (const Case& c :
         {Case{"empty", "", "damaged"}, Case{"cut", good.substr(0, good.size() / 2), "damaged"},
          Case{"another file", "{\"a\": 1}", "no document of the desk"},
          Case{"newer", with("\"version\":1", "\"version\":2"), "version 2"},
          Case{"a key gone", with("[\"RepeatSpacing\",0.1],\n", ""), "\"RepeatSpacing\""},
          Case{"a word for a number", with("[\"RepeatSpacing\",0.1]", "[\"RepeatSpacing\",\"w\"]"),
               "\"RepeatSpacing\""}}) {
        program.Write("d.json", c.bytes);
        for (const std::vector<std::string>& command :
             {std::vector<std::string>{"set", "d.json", "DefaultPage=2"},
              {"column", "add", "d.json", "New"},
              {"column", "remove", "d.json", "Listing"},
              {"generate", "d.json"},
              {"draw", "d.json", "--page", "1"},
              {"draft", "d.json"},
              {"export", "d.json", "-o", "o.pdf"}}) {
            const auto outcome = program.Run(command);
            EXPECT_EQ(outcome.status, 1) << c.what << ": " << command[0];
            EXPECT_EQ(outcome.output, "") << c.what << ": " << command[0];
            EXPECT_NE(outcome.errors.find(c.sentence), std::string::npos)
                << c.what << ": " << command[0] << '\n'
                << outcome.errors;
            EXPECT_EQ(program.Bytes("d.json"), c.bytes) << c.what << ": " << command[0];
        }
        EXPECT_FALSE(program.Exists("o.pdf")) << c.what;
    }
}

}  // namespace
}  // namespace tests
