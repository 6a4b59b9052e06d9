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
    host::Ref<host::IHostTable> Create(const host::Ref<host::IHostFields>& fields = TwoFields()) {
        return workspace_->CreateTable("Work", fields, nullptr, nullptr, "");
    }
    host::Ref<host::IHostWorkspace> workspace_ = ScratchWorkspaceFactory().CreateWorkspace();
};

TEST_F(ScratchTest, GivesBackEveryKindOfValue) {
    const std::vector<host::Variant> kinds = {host::Empty{},
                                              host::Null{},
                                              true,
                                              std::int16_t{-7},
                                              std::int32_t{-70000},
                                              -0.125,
                                              std::string("a\0b", 3),
                                              std::string(20000, 'y'),
                                              std::make_shared<Identifier>()};
    std::vector<host::Variant> values;
    for (std::size_t i = 0; i < 5000; ++i)  // More than a block of cells and a chunk of texts.
        values.push_back(i % 10 == 9 ? std::string(i % 400, 'x') : kinds[i % 10]);

    const auto table = Create();
    const auto insert = table->Insert(true);
    const auto held = table->CreateRowBuffer();
    held->SetValue(table->FindField("LISTING"), "held");
    for (const auto& value : values) {
        const auto buffer = table->CreateRowBuffer();
        EXPECT_EQ(buffer->Value(1), host::Variant());
        EXPECT_EQ(buffer->OID(), -1);
        buffer->SetValue(1, value);
        insert->InsertRow(buffer);
    }
    for (const char* text : {"held", "held again"}) {
        values.emplace_back(text);
        insert->InsertRow(held);
        EXPECT_EQ(held->OID(), std::ssize(values));
        held->SetValue(1, "held again");
    }
    EXPECT_THROW(held->SetValue(-1, true), host::Failure);

    std::vector<host::Ref<host::IHostRow>> kept;
    const auto rows = table->Search(nullptr, false);
    while (auto row = rows->NextRow()) kept.push_back(row);
    EXPECT_EQ(rows->NextRow(), nullptr);
    ASSERT_EQ(kept.size(), values.size());
    for (std::size_t i = 0; i < kept.size(); ++i) {
        const auto number = static_cast<std::int32_t>(i) + 1;
        EXPECT_EQ(kept[i]->OID(), number);
        EXPECT_EQ(kept[i]->Value(0), host::Variant(number));
        EXPECT_EQ(kept[i]->Value(1), values[i]) << i;
    }
    EXPECT_THROW(kept[0]->Value(2), host::Failure);
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
    const auto twice = TwoFields();
    twice->Field(1)->SetName("OID");
    EXPECT_THROW(Create(twice), host::Failure);
    twice->Field(1)->SetName("oid");
    EXPECT_EQ(Create(twice)->FindField("oid"), 1);
    const auto missing = TwoFields();
    missing->SetFieldCount(3);
    EXPECT_THROW(Create(missing), host::Failure);
}

}  // namespace
}  // namespace desk
