#include <gtest/gtest.h>
#include <string>

#include "desk/tables/DbfTable.h"
#include "desk/tables/PlainObjects.h"
#include "desk/tables/TableWorkspace.h"
#include "host/Failure.h"
#include "support/DbfBuilder.h"
#include "support/TemporaryFolder.h"

namespace desk {
namespace {

class TableWorkspaceTest : public testing::Test {
protected:
    TableWorkspaceTest() {
        std::filesystem::create_directory(folder_.File("sub"));
        folder_.Write("notes.txt", "x");
        for (const char* name : {"roads.dbf", "UPPER.DBF", "sub/deep.dbf"})
            support::DbfBuilder({{"Page", 'N', 4}, {"Listing", 'C', 8}, {"PAGE", 'N', 4}})
                .Row({"1", "a", "2"})
                .Write(folder_.File(name));
    }
    std::string Opened(const std::string& folder, const std::string& name) {
        const auto table = TableWorkspaceFactory().OpenFromFile(folder, 0)->OpenTable(name);
        return host::As<DbfTable>(table)->Path().substr(root_.size() + 1);
    }

    support::TemporaryFolder folder_;
    std::string root_ = folder_.Path();
};

TEST_F(TableWorkspaceTest, FindsTablesAsTheyAreSpelled) {
    EXPECT_EQ(Opened(root_ + "/", "roads.DBF"), "roads.dbf");
    EXPECT_EQ(Opened(root_, "roads"), "roads.dbf");
    EXPECT_EQ(Opened(root_, "UPPER.dbf"), "UPPER.DBF");
    EXPECT_EQ(Opened(root_ + "\\sub", "deep.dbf"), "sub/deep.dbf");
    EXPECT_EQ(Opened(root_, "sub\\deep.dbf"), "sub/deep.dbf");
    EXPECT_EQ(Opened("", root_ + "/sub/deep.dbf"), "sub/deep.dbf");
    EXPECT_EQ(Opened("", root_ + "\\sub\\deep.DBF"), "sub/deep.dbf");
    EXPECT_THROW(Opened(root_, "none.dbf"), host::Failure);
    EXPECT_THROW(Opened(root_ + "/none", "roads.dbf"), host::Failure);
}

TEST_F(TableWorkspaceTest, ListsTablesAndChangesNone) {
    TableWorkspace workspace(root_);
    const auto list = workspace.Datasets(host::kDatasetTypeTable);
    const auto first = list->Next();
    EXPECT_EQ(first->Name(), "UPPER.DBF");
    EXPECT_EQ(list->Next()->Name(), "roads.dbf");
    EXPECT_EQ(list->Next(), nullptr);
    EXPECT_EQ(workspace.Datasets(5)->Next(), nullptr);
    EXPECT_THROW(first->Delete(), host::Failure);
    EXPECT_THROW(workspace.CreateTable("x", nullptr, nullptr, nullptr, ""), host::Failure);
    EXPECT_THROW(workspace.OpenTable("roads.dbf")->Insert(true), host::Failure);
}

TEST_F(TableWorkspaceTest, FieldsAreFoundInAnyCase) {
    DbfTable table(folder_.File("roads.dbf"));
    for (const auto& [name, index] :
         {std::pair{"page", 0}, {"Page", 0}, {"PAGE", 2}, {"LISTING", 1}, {"Row", -1}}) {
        EXPECT_EQ(table.FindField(name), index);
        EXPECT_EQ(table.Fields()->FindField(name), index);
    }
    EXPECT_EQ(table.Fields()->Field(1)->Type(), host::kFieldTypeText);
    EXPECT_EQ(table.Notes().All().size(), 1U);  // Two fields of one name.

    const auto filter = std::make_shared<QueryFilter>();
    filter->SetWhereClause("Page = 1");
    EXPECT_THROW(table.Search(filter, true), host::Failure);
}

}  // namespace
}  // namespace desk
