#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "desk/tables/DbfTable.h"
#include "support/DbfBuilder.h"
#include "support/TemporaryFolder.h"

namespace desk {
namespace {

using host::Null;
using host::Variant;
using support::DbfBuilder;
using Text = std::string;

struct ValueCase {
    support::DbfColumn column;
    std::string bytes;
    Variant value;
    bool isFaulty = false;
};

// The high byte of a text's length stands where other fields have their decimals.
const std::vector<ValueCase> kValues = {
    {{"F", 'N', 10}, "-7", -7},
    {{"F", 'N', 10}, "+7", 7},
    {{"F", 'N', 10, 2}, "12.00", 12},
    {{"F", 'N', 10, 2}, "12.50", 12.5},
    {{"F", 'N', 10, 2}, "12,5", 12.5},
    {{"F", 'F', 12}, "1.5e+03", 1500},
    {{"F", 'N', 10}, "2147483648", 2147483648.0},
    {{"F", 'N', 20}, "9007199254740993", Text("9007199254740993")},
    {{"F", 'N', 20}, "99999999999999999999", Text("99999999999999999999")},
    {{"F", 'N', 10}, "", Null{}},
    {{"F", 'N', 4}, Text(4, '\0'), Null{}},
    {{"F", 'N', 5}, "*****", Null{}, true},
    {{"F", 'N', 5}, "nan", Null{}, true},
    {{"F", 'N', 11}, "-2147483648", -2147483647 - 1},
    {{"F", 'N', 5}, "-", Null{}, true},
    {{"F", 'N', 1}, "+", Null{}, true},
    {{"F", 'C', 10}, "  a b   ", Text("  a b")},
    {{"F", 'C', 10}, Text("ab\0cd", 5), Text("ab")},
    {{"F", 'C', 10}, "", Text()},
    {{"F", 'C', 300, 1}, Text(300, 'x'), Text(300, 'x')},
    {{"F", 'D', 8}, "20240229", Text("2024-02-29")},
    {{"F", 'D', 8}, "20230229", Null{}, true},
    {{"F", 'D', 8}, "", Null{}},
    {{"F", 'D', 8}, "00000000", Null{}},
    {{"F", 'L', 1}, "n", false},
    {{"F", 'L', 1}, "?", Null{}},
    {{"F", 'L', 1}, Text(1, '\0'), Null{}}};

TEST(DbfValues, AreReadByType) {
    const support::TemporaryFolder folder;
    for (const ValueCase& example : kValues) {
        SCOPED_TRACE(Text(1, example.column.type) + " " + example.bytes);
        DbfBuilder({example.column}).Row({example.bytes}).Write(folder.File("a.dbf"));
        DbfTable table(folder.File("a.dbf"));
        const auto cursor = table.Search(nullptr, false);
        EXPECT_EQ(cursor->NextRow()->Value(0), example.value);
        EXPECT_EQ(table.Notes().All().size(), example.isFaulty ? 1U : 0U);
    }
}

TEST(DbfValues, AreDecoded) {
    const std::string byDriver = " by language driver 0x";
    const std::string byFile = " by .cpg file";
    const std::string byDefault = " by default";
    struct EncodingCase {
        std::uint8_t driver;
        std::string cpg, bytes, text, encoding;
        std::string warning = {};
    };
    const EncodingCase cases[] = {
        {0x57, "UTF-8", "caf\xC3\xA9", "café", "UTF-8" + byFile},
        {0, "65001\r\n", "caf\xC3\xA9", "café", "UTF-8" + byFile},
        {0, "ANSI 1251", "\xC0", "А", "windows-1251" + byFile},
        {0, "OEM 437", "\x82", "é", "IBM437" + byFile},
        {0, "LDID/87", "\xE9", "é", "windows-1252" + byFile},
        {0, "88592", "\xB1", "ą", "ISO-8859-2" + byFile},
        {0x65, "nonsense", "\x80", "А", "IBM866" + byDriver + "65",
         ".cpg file (nonsense) is not known"},
        {0x57, "", "caf\xC3\xA9", "cafÃ©", "windows-1252" + byDriver + "57", "look like UTF-8"},
        {0x69, "", "caf\xE9", "café", "windows-1252" + byDefault, "driver 0x69 is not known"},
        {0, "", "caf\xE9", "café", "windows-1252" + byDefault, "nothing tells the encoding"},
        // The field's end cut the last character off.
        {0x4D, "", "123456789\xB0", "123456789", "GBK" + byDriver + "4D"},
        {0, "", "123456\xC3\xA9\xE2\x82", "123456é",
         "UTF-8" + byDefault + " (all text is valid UTF-8)"},
        {0, "UTF-8", "a\xFF!", "a\uFFFD!", "UTF-8" + byFile, "bytes that are no UTF-8"}};
    const support::TemporaryFolder folder;
    for (const EncodingCase& example : cases) {
        SCOPED_TRACE(example.cpg + " " + example.text);
        std::filesystem::remove(folder.File("a.cpg"));
        if (!example.cpg.empty()) folder.Write("a.cpg", example.cpg);
        DbfBuilder({{"F", 'C', 10}})
            .LanguageDriver(example.driver)
            .Row({example.bytes})
            .Write(folder.File("a.dbf"));
        DbfTable table(folder.File("a.dbf"));
        EXPECT_EQ(table.Search(nullptr, true)->NextRow()->Value(0), Variant(example.text));
        EXPECT_EQ(table.Encoding() + " by " + table.EncodingFrom(), example.encoding);
        EXPECT_EQ(table.Notes().All().size(), example.warning.empty() ? 0U : 1U);
        for (const auto& warning : table.Notes().All())
            EXPECT_NE(warning.find(example.warning), std::string::npos) << warning;
    }
}

}  // namespace
}  // namespace desk
