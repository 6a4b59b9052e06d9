#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "desk/tables/DbfTable.h"
#include "desk/tables/DbfWorkspace.h"
#include "desk/tables/PlainObjects.h"
#include "host/Failure.h"
#include "support/DbfBuilder.h"
#include "support/TemporaryFolder.h"

namespace desk {
namespace {

class DbfWorkspaceTest : public testing::Test {
protected:
    DbfWorkspaceTest() {
        std::filesystem::create_directory(folder_.File("sub"));
        Make("roads.dbf");
        Make("UPPER.DBF");
        Make("sub/deep.dbf");
        folder_.Write("notes.txt", "x");
    }
    void Make(const std::string& name) {
        support::DbfBuilder({{"Page", 'N', 4}, {"Listing", 'C', 8}, {"PAGE", 'N', 4}})
            .Row({"1", "a", "2"})
            .Write(folder_.File(name));
    }
    std::string Opened(const std::string& folder, const std::string& name) {
        const auto table = DbfWorkspaceFactory().OpenFromFile(folder, 0)->OpenTable(name);
        return host::As<DbfTable>(table)->Path().substr(folder_.Path().size() + 1);
    }

    support::TemporaryFolder folder_;
};

TEST_F(DbfWorkspaceTest, FindsTablesAsTheyAreSpelled) {
    const std::string& root = folder_.Path();
    EXPECT_EQ(Opened(root, "roads.dbf"), "roads.dbf");
    EXPECT_EQ(Opened(root + "/", "roads.DBF"), "roads.dbf");
    EXPECT_EQ(Opened(root, "roads"), "roads.dbf");
    EXPECT_EQ(Opened(root, "UPPER.dbf"), "UPPER.DBF");
    EXPECT_EQ(Opened(root + "\\sub", "deep.dbf"), "sub/deep.dbf");
    EXPECT_EQ(Opened(root, "sub\\deep.dbf"), "sub/deep.dbf");
    EXPECT_EQ(Opened("", root + "/sub/deep.dbf"), "sub/deep.dbf");
    EXPECT_EQ(Opened("", root + "\\sub\\deep.DBF"), "sub/deep.dbf");
    EXPECT_THROW(Opened(root, "none.dbf"), host::Failure);
    EXPECT_THROW(Opened(root + "/none", "roads.dbf"), host::Failure);
}

TEST_F(DbfWorkspaceTest, ListsTablesAndChangesNone) {
    const auto workspace = DbfWorkspaceFactory().OpenFromFile(folder_.Path(), 0);
    const auto list = workspace->Datasets(host::kDatasetTypeTable);
    const auto first = list->Next();
    EXPECT_EQ(first->Name(), "UPPER.DBF");
    EXPECT_EQ(list->Next()->Name(), "roads.dbf");
    EXPECT_EQ(list->Next(), nullptr);
    EXPECT_EQ(workspace->Datasets(5)->Next(), nullptr);
    EXPECT_THROW(first->Delete(), host::Failure);
    EXPECT_THROW(workspace->CreateTable("x", nullptr, nullptr, nullptr, ""), host::Failure);
    EXPECT_THROW(workspace->OpenTable("roads.dbf")->Insert(true), host::Failure);
}

TEST_F(DbfWorkspaceTest, FieldsAreFoundInAnyCase) {
    const auto table = DbfWorkspace(folder_.Path()).OpenTable("roads.dbf");
    EXPECT_EQ(table->FindField("LISTING"), 1);
    EXPECT_EQ(table->FindField("page"), 0);
    EXPECT_LT(table->FindField("Row"), 0);
    EXPECT_EQ(table->Fields()->FindField("listing"), 1);
    EXPECT_EQ(table->Fields()->Field(1)->Type(), host::kFieldTypeText);
    EXPECT_EQ(host::As<DbfTable>(table)->Warnings().size(), 1U);  // Two fields of one name.

    const auto filter = std::make_shared<QueryFilter>();
    filter->SetWhereClause("Page = 1");
    EXPECT_THROW(table->Search(filter, true), host::Failure);
}

}  // namespace
}  // namespace desk
