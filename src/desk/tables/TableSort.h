#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "desk/tables/SortRows.h"
#include "host/Tables.h"

namespace desk {

/// Orders rows by the answers of a callback with a stable merge sort, of values that the callback
/// prepared where it offers that. It asks about n log n pairs and ends whatever it is told. Where
/// Sort fails, Rows keeps what it gave before.
class TableSort : public host::IHostTableSort {
public:
    void SetTable(const host::Ref<host::IHostTable>& table) override;
    void SetQueryFilter(const host::Ref<host::IHostQueryFilter>& filter) override {
        filter_ = filter;
    }
    void SetFields(const std::string& fields) override { fields_ = fields; }
    void SetAscending(const std::string& field, bool ascending) override {
        ascending_[field] = ascending;
    }
    void SetFieldOption(const std::string&, bool) override {}
    void SetCallback(const host::Ref<host::ITableSortCallBack>& callback) override {
        callback_ = callback;
    }
    /// Fails without a table, and without a callback where there are fields to sort by.
    void Sort(const host::Ref<host::IHostObject>& progress) override;
    /// The table's own order before the first Sort.
    host::Ref<host::IHostCursor> Rows() override;

private:
    std::vector<SortKey::Field> Keys() const;

    host::Ref<host::IHostTable> table_;
    host::Ref<host::IHostQueryFilter> filter_;
    std::string fields_;
    std::map<std::string, bool> ascending_;  ///< By field name.
    host::Ref<host::ITableSortCallBack> callback_;
    std::unique_ptr<SortRows> rows_;
    std::vector<std::uint32_t> order_;
};

}  // namespace desk
