#include <gtest/gtest.h>
#include <string>

#include "desk/tables/PlainObjects.h"
#include "desk/tables/Scratch.h"
#include "host/Failure.h"

namespace desk {
namespace {

host::Ref<host::IHostFields> TwoFields() {
    auto fields = std::make_shared<Fields>();
    fields->SetFieldCount(2);
    fields->SetField(0, std::make_shared<Field>("OID", host::kFieldTypeObjectId, 0));
    fields->SetField(1, std::make_shared<Field>("Listing", host::kFieldTypeText, 255));
    return fields;
}

class ScratchTest : public testing::Test {
protected:
    host::Ref<host::IHostTable> Create() {
        return workspace_->CreateTable("Work", TwoFields(), std::make_shared<Identifier>(), nullptr,
                                       "");
    }
    host::Ref<host::IHostWorkspace> workspace_ = ScratchWorkspaceFactory().CreateWorkspace();
};

TEST_F(ScratchTest, GivesBackWhatWasPutIn) {
    const auto table = Create();
    const auto insert = table->Insert(true);
    const auto buffer = table->CreateRowBuffer();
    const std::string longText(1000, 'x');
    for (const std::string& text : {std::string("a"), longText}) {
        buffer->SetValue(table->FindField("LISTING"), text);
        insert->InsertRow(buffer);
    }
    EXPECT_EQ(buffer->OID(), 2);
    insert->Flush();

    const auto rows = table->Search(nullptr, false);
    const auto first = rows->NextRow();
    const auto second = rows->NextRow();
    EXPECT_EQ(rows->NextRow(), nullptr);
    EXPECT_EQ(first->OID(), 1);
    EXPECT_EQ(first->Value(0), host::Variant(1));
    EXPECT_EQ(first->Value(1), host::Variant(std::string("a")));
    EXPECT_EQ(second->OID(), 2);
    EXPECT_EQ(second->Value(1), host::Variant(longText));
    EXPECT_THROW(first->Value(2), host::Failure);
    EXPECT_THROW(buffer->SetValue(-1, true), host::Failure);
}

TEST_F(ScratchTest, TablesAreListedAndDeleted) {
    const auto table = Create();
    EXPECT_THROW(Create(), host::Failure);
    EXPECT_EQ(workspace_->OpenTable("work"), table);
    const auto dataset = workspace_->Datasets(host::kDatasetTypeTable)->Next();
    ASSERT_NE(dataset, nullptr);
    EXPECT_EQ(dataset->Name(), "Work");
    dataset->Delete();
    EXPECT_EQ(workspace_->Datasets(host::kDatasetTypeTable)->Next(), nullptr);
    EXPECT_THROW(workspace_->OpenTable("Work"), host::Failure);
    EXPECT_NE(Create(), table);
}

TEST_F(ScratchTest, RefusesFieldsThatCannotBeTold) {
    auto twice = TwoFields();
    twice->Field(1)->SetName("oid");
    EXPECT_THROW(workspace_->CreateTable("A", twice, nullptr, nullptr, ""), host::Failure);
    auto missing = std::make_shared<Fields>();
    missing->SetFieldCount(1);
    EXPECT_THROW(workspace_->CreateTable("B", missing, nullptr, nullptr, ""), host::Failure);
}

}  // namespace
}  // namespace desk
