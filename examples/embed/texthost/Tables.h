#pragma once

#include <map>
#include <sstream>

#include "Values.h"

/// Tables in memory. The component reads its listings from one and keeps its rows in another.
namespace texthost {

class Identifier final : public host::IHostIdentifier {
public:
    std::string Value() const override { return value_; }
    void SetValue(const std::string& value) override { value_ = value; }

private:
    std::string value_;
};

class QueryFilter final : public host::IHostQueryFilter {
public:
    std::string WhereClause() const override { return {}; }
    void SetWhereClause(const std::string&) override {}
};

class Field final : public host::IHostField {
public:
    explicit Field(std::string name = {}) : name_(std::move(name)) {}
    std::string Name() const override { return name_; }
    void SetName(const std::string& name) override { name_ = name; }
    std::int32_t Type() const override { return type_; }
    void SetType(std::int32_t type) override { type_ = type; }
    std::int32_t Length() const override { return length_; }
    void SetLength(std::int32_t length) override { length_ = length; }

private:
    std::string name_;
    std::int32_t type_ = host::kFieldTypeText;
    std::int32_t length_ = 0;
};

class Fields final : public host::IHostFields {
public:
    explicit Fields(const std::vector<std::string>& names = {}) {
        for (const auto& name : names) fields_.push_back(std::make_shared<texthost::Field>(name));
    }
    std::int32_t FieldCount() const override { return static_cast<std::int32_t>(fields_.size()); }
    void SetFieldCount(std::int32_t count) override {
        fields_.resize(static_cast<std::size_t>(count));
    }
    Ref<host::IHostField> Field(std::int32_t index) const override {
        return fields_.at(static_cast<std::size_t>(index));
    }
    void SetField(std::int32_t index, const Ref<host::IHostField>& field) override {
        fields_.at(static_cast<std::size_t>(index)) = field;
    }
    std::int32_t FindField(const std::string& name) const override {
        for (std::int32_t i = 0; i < FieldCount(); ++i)
            if (Field(i)->Name() == name) return i;
        return -1;
    }

private:
    std::vector<Ref<host::IHostField>> fields_;
};

using Values = std::vector<host::Variant>;

class Row final : public host::IHostRow {
public:
    explicit Row(Values values) : values_(std::move(values)) {}
    host::Variant Value(std::int32_t index) const override {
        return values_.at(static_cast<std::size_t>(index));
    }
    void SetValue(std::int32_t index, host::Variant value) override {
        values_.at(static_cast<std::size_t>(index)) = std::move(value);
    }
    std::int32_t OID() const override { return oid; }

    std::int32_t oid = 0;

private:
    Values values_;
};

using Rows = std::vector<Ref<Row>>;

class Cursor final : public host::IHostCursor {
public:
    /// Reads these rows, or adds to those of a table.
    explicit Cursor(Rows rows) : rows_(std::move(rows)) {}
    explicit Cursor(const Ref<Rows>& table) : table_(table) {}

    Ref<host::IHostRow> NextRow() override {
        return next_ < rows_.size() ? rows_[next_++] : nullptr;
    }
    void InsertRow(const Ref<host::IHostRow>& buffer) override {
        const auto row = host::As<Row>(buffer);
        row->oid = static_cast<std::int32_t>(table_->size()) + 1;
        table_->push_back(row);
    }
    void Flush() override {}

private:
    Rows rows_;
    Ref<Rows> table_;
    std::size_t next_ = 0;
};

class Table final : public host::IHostTable {
public:
    explicit Table(Ref<host::IHostFields> fields) : fields_(std::move(fields)) {}
    /// A table with fields of these names and rows of these values, which need not be texts.
    explicit Table(const std::vector<std::string>& names, const std::vector<Values>& rows = {})
        : fields_(std::make_shared<texthost::Fields>(names)) {
        Cursor insert(rows_);
        for (const auto& row : rows) insert.InsertRow(std::make_shared<Row>(row));
    }

    Ref<host::IHostFields> Fields() const override { return fields_; }
    std::int32_t FindField(const std::string& name) const override {
        return fields_->FindField(name);
    }
    Ref<host::IHostCursor> Search(const Ref<host::IHostQueryFilter>&, bool) override {
        return std::make_shared<Cursor>(*rows_);
    }
    Ref<host::IHostCursor> Insert(bool) override { return std::make_shared<Cursor>(rows_); }
    Ref<host::IHostRow> CreateRowBuffer() override {
        return std::make_shared<Row>(Values(static_cast<std::size_t>(fields_->FieldCount())));
    }
    const Rows& AllRows() const { return *rows_; }

private:
    Ref<host::IHostFields> fields_;
    Ref<Rows> rows_ = std::make_shared<Rows>();
};

class NoDatasets final : public host::IHostDatasetEnum {
public:
    Ref<host::IHostDataset> Next() override { return nullptr; }
};

/// Where the component opens its listings by name, and a private place for its scratch table.
class Workspace final : public host::IHostWorkspace,
                        public host::IHostWorkspaceFactory,
                        public host::IHostScratchWorkspaceFactory,
                        public std::enable_shared_from_this<Workspace> {
public:
    void Put(const std::string& name, Ref<host::IHostTable> table) {
        tables_[name] = std::move(table);
    }
    void Remove(const std::string& name) { tables_.erase(name); }
    bool Has(const std::string& name) const { return tables_.contains(name); }

    Ref<host::IHostTable> OpenTable(const std::string& name) override {
        if (!Has(name)) Fail("There is no table \"" + name + "\".");
        return tables_.at(name);
    }
    Ref<host::IHostTable> CreateTable(const std::string&, const Ref<host::IHostFields>& fields,
                                      const Ref<host::IHostIdentifier>&,
                                      const Ref<host::IHostIdentifier>&,
                                      const std::string&) override {
        return std::make_shared<Table>(fields);
    }
    Ref<host::IHostDatasetEnum> Datasets(std::int32_t) override {
        return std::make_shared<NoDatasets>();
    }
    Ref<host::IHostWorkspace> OpenFromFile(const std::string&, std::int32_t) override {
        return shared_from_this();
    }
    Ref<host::IHostWorkspace> CreateWorkspace() override { return shared_from_this(); }

private:
    std::map<std::string, Ref<host::IHostTable>> tables_;
};

/// Puts each row behind those that it does not precede, which stays within the rows whatever the
/// callback answers: the component's comparison of words and numbers is no strict order.
class TableSort final : public host::IHostTableSort {
public:
    void SetTable(const Ref<host::IHostTable>& table) override { table_ = host::As<Table>(table); }
    void SetQueryFilter(const Ref<host::IHostQueryFilter>&) override {}
    void SetFields(const std::string& fields) override {
        std::istringstream names(fields);
        for (std::string name; std::getline(names, name, ',');) keys_.push_back({name, -1, true});
    }
    void SetAscending(const std::string& field, bool ascending) override {
        for (auto& key : keys_)
            if (key.field == field) key.ascending = ascending;
    }
    void SetFieldOption(const std::string&, bool) override {}
    void SetCallback(const Ref<host::ITableSortCallBack>& callback) override {
        callback_ = callback;
    }
    void Sort(const Ref<host::IHostObject>&) override {
        for (auto& key : keys_) {
            key.index = table_->FindField(key.field);
            if (key.index < 0) Fail("There is no field \"" + key.field + "\" to sort by.");
        }
        for (const auto& row : table_->AllRows()) {
            const auto place = std::upper_bound(
                rows_.begin(), rows_.end(), row,
                [&](const auto& one, const auto& other) { return StandsBefore(*one, *other); });
            rows_.insert(place, row);
        }
    }
    Ref<host::IHostCursor> Rows() override { return std::make_shared<Cursor>(rows_); }

private:
    struct Key {
        std::string field;
        std::int32_t index;
        bool ascending;
    };

    bool StandsBefore(const Row& row, const Row& other) const {
        for (std::size_t i = 0; i < keys_.size(); ++i) {
            const auto& key = keys_[i];
            const auto answer = callback_->Compare(row.Value(key.index), other.Value(key.index),
                                                   key.index, static_cast<std::int32_t>(i));
            if (answer != 0) return (answer < 0) == key.ascending;
        }
        return false;
    }

    Ref<Table> table_;
    Ref<host::ITableSortCallBack> callback_;
    std::vector<Key> keys_;
    texthost::Rows rows_;
};

}  // namespace texthost
