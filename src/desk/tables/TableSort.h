#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "desk/tables/SortRows.h"
#include "host/Tables.h"

namespace desk {

/// Stable merge sort of rows by a callback, or by values that the callback prepares. Compares about
/// n log n pairs and terminates even with inconsistent answers. If Sort throws, Rows returns the
/// previous order.
class TableSort : public host::IHostTableSort {
public:
    explicit TableSort(SortListener listener = {}) : listener_(std::move(listener)) {}

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
    /// Throws without a table, and without a callback if there are sort fields.
    void Sort(const host::Ref<host::IHostObject>& progress) override;
    /// Before the first Sort, returns the table's own order.
    host::Ref<host::IHostCursor> Rows() override;

private:
    std::vector<SortKey::Field> Keys() const;

    host::Ref<host::IHostTable> table_;
    host::Ref<host::IHostQueryFilter> filter_;
    std::string fields_;
    std::map<std::string, bool> ascending_;  ///< By field name.
    host::Ref<host::ITableSortCallBack> callback_;
    SortListener listener_;
    std::unique_ptr<SortRows> rows_;
    std::vector<std::uint32_t> order_;
};

}  // namespace desk
