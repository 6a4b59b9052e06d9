#include <gtest/gtest.h>
#include <string>
#include <vector>

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

TEST_F(ScratchTest, KeepsEveryKindOfValueApart) {
    const auto object = std::make_shared<Identifier>();
    const std::vector<host::Variant> values = {host::Empty{},
                                               host::Null{},
                                               true,
                                               std::int16_t{-7},
                                               std::int32_t{-70000},
                                               -0.125,
                                               std::string("a\0b", 3),
                                               std::string(20000, 'y'),
                                               host::Ref<host::IHostObject>(object)};
    const auto table = Create();
    const auto insert = table->Insert(true);
    const auto held = table->CreateRowBuffer();
    held->SetValue(1, std::string("held"));
    const std::size_t count = 5000;  // More than a block of cells and a chunk of texts.
    for (std::size_t i = 0; i < count; ++i) {
        const auto buffer = table->CreateRowBuffer();
        EXPECT_EQ(buffer->Value(1), host::Variant());
        EXPECT_EQ(buffer->OID(), -1);
        buffer->SetValue(1, i % 9 == 6 ? std::string(i % 400, 'x') : values[i % 9]);
        insert->InsertRow(buffer);
    }
    EXPECT_EQ(held->Value(1), host::Variant(std::string("held")));

    std::vector<host::Ref<host::IHostRow>> kept;
    const auto rows = table->Search(nullptr, false);
    while (auto row = rows->NextRow()) kept.push_back(row);
    ASSERT_EQ(kept.size(), count);
    for (std::size_t i = 0; i < count; ++i) {
        EXPECT_EQ(kept[i]->OID(), static_cast<std::int32_t>(i) + 1);
        EXPECT_EQ(kept[i]->Value(1),
                  i % 9 == 6 ? host::Variant(std::string(i % 400, 'x')) : values[i % 9]);
    }
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
