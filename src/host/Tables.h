#pragma once

#include <cstdint>
#include <string>

#include "host/Variant.h"

namespace host {

/// Numbers of the field types in use.
inline constexpr std::int32_t kFieldTypeText = 4;
inline constexpr std::int32_t kFieldTypeObjectId = 6;

/// Dataset type of a table.
inline constexpr std::int32_t kDatasetTypeTable = 10;

/// Identifier of a class, command or category.
struct IHostIdentifier : virtual IHostObject {
    virtual std::string Value() const = 0;
    virtual void SetValue(const std::string& value) = 0;
};

struct IHostField : virtual IHostObject {
    virtual std::string Name() const = 0;
    virtual void SetName(const std::string& name) = 0;
    virtual std::int32_t Type() const = 0;
    virtual void SetType(std::int32_t type) = 0;
    virtual std::int32_t Length() const = 0;
    virtual void SetLength(std::int32_t length) = 0;
};

/// Fields of a table, index from 0.
struct IHostFields : virtual IHostObject {
    virtual std::int32_t FieldCount() const = 0;
    virtual void SetFieldCount(std::int32_t count) = 0;
    virtual Ref<IHostField> Field(std::int32_t index) const = 0;
    virtual void SetField(std::int32_t index, const Ref<IHostField>& field) = 0;
    /// Negative for an absent field.
    virtual std::int32_t FindField(const std::string& name) const = 0;
};

/// A row, or a buffer for one. Field indexes count from 0.
struct IHostRow : virtual IHostObject {
    virtual Variant Value(std::int32_t index) const = 0;
    virtual void SetValue(std::int32_t index, Variant value) = 0;
    /// Unique in its table, set when the row is inserted.
    virtual std::int32_t OID() const = 0;
};

struct IHostQueryFilter : virtual IHostObject {
    /// Empty selects every row.
    virtual std::string WhereClause() const = 0;
    virtual void SetWhereClause(const std::string& clause) = 0;
};

struct IHostCursor : virtual IHostObject {
    /// Null at the end. A recycling cursor may give the same object again with other values.
    virtual Ref<IHostRow> NextRow() = 0;
    virtual void InsertRow(const Ref<IHostRow>& buffer) = 0;
    /// Writes buffered rows to the table.
    virtual void Flush() = 0;
};

struct IHostTable : virtual IHostObject {
    virtual Ref<IHostFields> Fields() const = 0;
    /// Negative for an absent field.
    virtual std::int32_t FindField(const std::string& name) const = 0;
    /// Rows in table order. A null filter selects every row.
    virtual Ref<IHostCursor> Search(const Ref<IHostQueryFilter>& filter, bool recycling) = 0;
    virtual Ref<IHostCursor> Insert(bool useBuffering) = 0;
    virtual Ref<IHostRow> CreateRowBuffer() = 0;
};

struct IHostDataset : virtual IHostObject {
    virtual std::string Name() const = 0;
    virtual void Delete() = 0;
};

/// Next gives null at the end.
struct IHostDatasetEnum : virtual IHostObject {
    virtual Ref<IHostDataset> Next() = 0;
};

struct IHostWorkspace : virtual IHostObject {
    virtual Ref<IHostTable> OpenTable(const std::string& name) = 0;
    virtual Ref<IHostTable> CreateTable(const std::string& name, const Ref<IHostFields>& fields,
                                        const Ref<IHostIdentifier>& rowClass,
                                        const Ref<IHostIdentifier>& extensionClass,
                                        const std::string& configuration) = 0;
    virtual Ref<IHostDatasetEnum> Datasets(std::int32_t type) = 0;
};

struct IHostScratchWorkspaceFactory : virtual IHostObject {
    /// A private temporary workspace.
    virtual Ref<IHostWorkspace> CreateWorkspace() = 0;
};

struct IHostWorkspaceFactory : virtual IHostObject {
    /// A folder of dBase files as a workspace. The second argument is always 0.
    virtual Ref<IHostWorkspace> OpenFromFile(const std::string& path, std::int32_t window) = 0;
};

/// The comparison that a table sort asks. Answers -1, 0 or 1.
struct ITableSortCallBack : virtual IHostObject {
    virtual std::int32_t Compare(const Variant& value1, const Variant& value2,
                                 std::int32_t fieldIndex, std::int32_t fieldSortIndex) = 0;
};

/// Sorts the rows of a table. The sort is stable and terminates for any results of the callback,
/// which need not form a strict order.
struct IHostTableSort : virtual IHostObject {
    virtual void SetTable(const Ref<IHostTable>& table) = 0;
    virtual void SetQueryFilter(const Ref<IHostQueryFilter>& filter) = 0;
    /// Field names joined by commas, primary key first. Empty keeps the table's order.
    virtual void SetFields(const std::string& fields) = 0;
    virtual void SetAscending(const std::string& field, bool ascending) = 0;
    virtual void SetFieldOption(const std::string& field, bool option) = 0;
    virtual void SetCallback(const Ref<ITableSortCallBack>& callback) = 0;
    virtual void Sort(const Ref<IHostObject>& progress) = 0;
    virtual Ref<IHostCursor> Rows() = 0;
};

/// Makes the objects that open, describe, search and sort tables.
struct IHostTableFactory : virtual IHostObject {
    virtual Ref<IHostScratchWorkspaceFactory> NewScratchWorkspaceFactory() = 0;
    virtual Ref<IHostWorkspaceFactory> NewWorkspaceFactory() = 0;
    virtual Ref<IHostFields> NewFields() = 0;
    virtual Ref<IHostField> NewField() = 0;
    virtual Ref<IHostQueryFilter> NewQueryFilter() = 0;
    virtual Ref<IHostIdentifier> NewIdentifier() = 0;
    virtual Ref<IHostTableSort> NewTableSort() = 0;
};

}  // namespace host
