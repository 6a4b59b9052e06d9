#pragma once

#include <cstdint>

#include "host/Variant.h"

namespace host {

/// The values of one field of the rows to sort, by position.
struct SortValues {
    SortValues() = default;
    SortValues(const SortValues&) = delete;
    SortValues& operator=(const SortValues&) = delete;
    virtual ~SortValues() = default;

    virtual std::uint32_t Count() const = 0;
    /// The value, perhaps in the storage; it is good until the storage changes.
    virtual const Variant& Value(std::uint32_t position, Variant& storage) const = 0;
};

/// The values of a field made ready for many comparisons, known by their positions.
struct IPreparedValues : virtual IHostObject {
    /// What the callback's Compare answers for the two values.
    virtual std::int32_t Compare(std::uint32_t position1, std::uint32_t position2) const = 0;
};

/// What the callback of a table sort may offer beside Compare. A sort need not know of it.
struct ITableSortPreparation : virtual IHostObject {
    /// Null where some value cannot be made ready; Compare then has the word.
    virtual Ref<IPreparedValues> Prepare(const SortValues& values, std::int32_t fieldIndex,
                                         std::int32_t fieldSortIndex) = 0;
};

}  // namespace host
