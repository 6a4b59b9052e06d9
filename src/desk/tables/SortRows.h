#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "host/SortPreparation.h"
#include "host/Tables.h"

namespace desk {

/// The rows that a sort orders, with the values of its keys at hand.
class SortRows {
public:
    SortRows() = default;
    SortRows(const SortRows&) = delete;
    SortRows& operator=(const SortRows&) = delete;
    virtual ~SortRows() = default;

    /// The rows of a table that a filter selects; the keys are field indexes.
    static std::unique_ptr<SortRows> Of(const host::Ref<host::IHostTable>& table,
                                        const host::Ref<host::IHostQueryFilter>& filter,
                                        const std::vector<std::int32_t>& keys);

    virtual std::uint32_t Count() const = 0;
    /// The value of a sort key, counted from 0; see SortValues::Value.
    virtual const host::Variant& Value(std::uint32_t row, std::size_t key,
                                       host::Variant& storage) const = 0;
    virtual host::Ref<host::IHostCursor> InOrder(std::vector<std::uint32_t> order) const = 0;
};

}  // namespace desk
