#include "desk/tables/Scratch.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "desk/tables/DatasetList.h"
#include "desk/tables/PlainObjects.h"
#include "desk/tables/ScratchRows.h"
#include "host/Failure.h"

namespace desk {

class ScratchInsertCursor : public host::IHostCursor {
public:
    explicit ScratchInsertCursor(host::Ref<ScratchTable> table) : table_(std::move(table)) {}

    host::Ref<host::IHostRow> NextRow() override {
        Fail("This cursor of the table " + table_->Name() + " only inserts.");
    }
    void InsertRow(const host::Ref<host::IHostRow>& buffer) override { table_->Append(buffer); }
    void Flush() override {}

private:
    [[noreturn]] static void Fail(const std::string& text) {
        throw host::Failure(host::kFailureUnspecified, "ScratchTable", text);
    }

    host::Ref<ScratchTable> table_;
};

namespace {

[[noreturn]] void Fail(std::int32_t number, const std::string& text) {
    throw host::Failure(number, "ScratchWorkspace", text);
}

using TableList = std::vector<host::Ref<ScratchTable>>;

TableList::iterator FindTable(TableList& tables, const std::string& name) {
    const std::string wanted = FoldName(name);
    return std::find_if(tables.begin(), tables.end(),
                        [&](const auto& table) { return FoldName(table->Name()) == wanted; });
}

class ScratchDataset : public host::IHostDataset {
public:
    ScratchDataset(std::shared_ptr<TableList> tables, std::string name)
        : tables_(std::move(tables)), name_(std::move(name)) {}

    std::string Name() const override { return name_; }
    void Delete() override {
        const auto table = FindTable(*tables_, name_);
        if (table == tables_->end())
            Fail(host::kFailureNotFound, "There is no table " + name_ + " any more.");
        tables_->erase(table);
    }

private:
    std::shared_ptr<TableList> tables_;
    std::string name_;
};

}  // namespace

ScratchTable::ScratchTable(std::string name, const host::Ref<host::IHostFields>& fields)
    : name_(std::move(name)) {
    auto copy = std::make_shared<desk::Fields>();
    copy->SetFieldCount(fields ? fields->FieldCount() : 0);
    std::vector<std::string> names;
    for (std::int32_t i = 0; i < copy->FieldCount(); ++i) {
        const auto field = fields->Field(i);
        if (!field)
            Fail(host::kFailureNotFound, "The table " + name_ +
                                             " cannot be made: its field number " +
                                             std::to_string(i) + " is missing.");
        copy->SetField(i, std::make_shared<Field>(field->Name(), field->Type(), field->Length()));
        names.push_back(field->Name());
        isObjectId_.push_back(field->Type() == host::kFieldTypeObjectId);
    }
    names_ = FieldNames(names);
    if (!names_.Repeated().empty())
        Fail(host::kFailureUnspecified, "The table " + name_ +
                                            " cannot be made: it would have two fields named " +
                                            names_.Repeated().front() + ".");
    fields_ = copy;
}

host::Ref<host::IHostFields> ScratchTable::Fields() const {
    return fields_;
}

std::int32_t ScratchTable::FindField(const std::string& name) const {
    return names_.Find(name);
}

host::Ref<host::IHostCursor> ScratchTable::Search(const host::Ref<host::IHostQueryFilter>& filter,
                                                  bool recycling) {
    RequireEveryRow(filter);
    return std::make_shared<ScratchReadCursor>(shared_from_this(), recycling);
}

host::Ref<host::IHostCursor> ScratchTable::Insert(bool) {
    return std::make_shared<ScratchInsertCursor>(shared_from_this());
}

host::Ref<host::IHostRow> ScratchTable::CreateRowBuffer() {
    return std::make_shared<ScratchBuffer>(FieldCount());
}

host::Ref<host::IHostCursor> ScratchTable::InOrder(std::vector<std::uint32_t> order,
                                                   bool recycling) {
    return std::make_shared<ScratchReadCursor>(shared_from_this(), std::move(order), recycling);
}

void ScratchTable::Append(const host::Ref<host::IHostRow>& buffer) {
    const auto row = std::dynamic_pointer_cast<ScratchBuffer>(buffer);
    if (!row || row->Values().size() != FieldCount())
        Fail(host::kFailureTypeMismatch, "This row is no row of the table " + name_ + ".");
    if (rowCount_ >= static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()))
        Fail(host::kFailureOverflow, "The table " + name_ + " is full.");
    const auto oid = static_cast<std::int32_t>(rowCount_ + 1);
    for (std::size_t i = 0; i < FieldCount(); ++i) {
        const std::size_t cell = rowCount_ * FieldCount() + i;
        if (cell / kBlockCells == blocks_.size())
            blocks_.push_back(std::make_unique<host::Variant[]>(kBlockCells));
        blocks_.back()[cell % kBlockCells] = isObjectId_[i] ? host::Variant(oid) : row->Values()[i];
    }
    ++rowCount_;
    row->SetOID(oid);
}

ScratchWorkspace::ScratchWorkspace() : tables_(std::make_shared<TableList>()) {}

ScratchWorkspace::~ScratchWorkspace() = default;

host::Ref<host::IHostTable> ScratchWorkspace::OpenTable(const std::string& name) {
    const auto table = FindTable(*tables_, name);
    if (table == tables_->end())
        Fail(host::kFailureNotFound, "There is no table " + name + " in the temporary workspace.");
    return *table;
}

host::Ref<host::IHostTable> ScratchWorkspace::CreateTable(
    const std::string& name, const host::Ref<host::IHostFields>& fields,
    const host::Ref<host::IHostIdentifier>&, const host::Ref<host::IHostIdentifier>&,
    const std::string&) {
    if (FindTable(*tables_, name) != tables_->end())
        Fail(host::kFailureUnspecified,
             "There is a table " + name + " in the temporary workspace already.");
    tables_->push_back(std::make_shared<ScratchTable>(name, fields));
    return tables_->back();
}

host::Ref<host::IHostDatasetEnum> ScratchWorkspace::Datasets(std::int32_t type) {
    std::vector<host::Ref<host::IHostDataset>> datasets;
    if (type == host::kDatasetTypeTable)
        for (const auto& table : *tables_)
            datasets.push_back(std::make_shared<ScratchDataset>(tables_, table->Name()));
    return std::make_shared<DatasetList>(std::move(datasets));
}

host::Ref<host::IHostWorkspace> ScratchWorkspaceFactory::CreateWorkspace() {
    return std::make_shared<ScratchWorkspace>();
}

}  // namespace desk
