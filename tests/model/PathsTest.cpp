#include <gtest/gtest.h>

#include "model/Paths.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

TEST(Paths, FolderAndFile) {
    struct Case {
        const char* path;
        const char* folder;
        const char* file;
    };
    for (const Case& c :
         {Case{"names.dbf", "", "names.dbf"}, Case{"C:\\names.dbf", "C:", "names.dbf"},
          Case{"C:\\maps\\x\\names.dbf", "C:\\maps\\x", "names.dbf"},
          Case{"\\\\server\\maps\\names.dbf", "\\\\server\\maps", "names.dbf"},
          Case{"\\names.dbf", "", "names.dbf"}, Case{"/home/a/names.dbf", "", "/home/a/names.dbf"},
          Case{"", "", ""}}) {
        EXPECT_EQ(RemoveFileName(c.path), c.folder) << c.path;
        EXPECT_EQ(GetFileName(c.path), c.file) << c.path;
    }
}

TEST(Text, TokensInAnyCase) {
    EXPECT_TRUE(ContainsInAnyCase("x $$page_Number", "$$PAGE_NUMBER"));
    EXPECT_FALSE(ContainsInAnyCase("$$PAGE NUMBER", "$$PAGE_NUMBER"));
    EXPECT_EQ(ReplaceAll("a$$$$DOTS$$DOTSb", "$$DOTS", ""), "a$$b");
}

}  // namespace
}  // namespace gazetteer
