#include <gtest/gtest.h>

#include "model/Paths.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

TEST(Paths, FolderAndFile) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"names.dbf", "", "names.dbf"},
        {"C:\\names.dbf", "C:", "names.dbf"},
        {"C:\\maps\\x\\names.dbf", "C:\\maps\\x", "names.dbf"},
        {"\\\\server\\maps\\names.dbf", "\\\\server\\maps", "names.dbf"},
        {"\\names.dbf", "", "names.dbf"},
        {"/home/a/names.dbf", "", "/home/a/names.dbf"},
        {"", "", ""}};
    for (const auto& [path, folder, file] : cases) {
        EXPECT_EQ(RemoveFileName(path), folder) << path;
        EXPECT_EQ(GetFileName(path), file) << path;
    }
}

TEST(Text, TokensInAnyCase) {
    EXPECT_TRUE(ContainsInAnyCase("x $$page_Number", "$$PAGE_NUMBER"));
    EXPECT_FALSE(ContainsInAnyCase("$$PAGE NUMBER", "$$PAGE_NUMBER"));
    EXPECT_EQ(ReplaceAll("a$$$$DOTS$$DOTSb", "$$DOTS", ""), "a$$b");
}

}  // namespace
}  // namespace gazetteer
