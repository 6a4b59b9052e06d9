#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "host/Variant.h"

namespace host {

/// The values of one field of the rows to sort, by position.
struct SortValues {
    SortValues() = default;
    SortValues(const SortValues&) = delete;
    SortValues& operator=(const SortValues&) = delete;
    virtual ~SortValues() = default;

    virtual std::uint32_t Count() const = 0;
    /// The value, which may be placed in the storage; valid until the storage changes.
    virtual const Variant& Value(std::uint32_t position, Variant& storage) const = 0;
    /// Called between stages of a long preparation. Throws, as Value may, to end the sort.
    virtual void Pause() const {}
};

/// The first words of a value as integers, here called digits, which a sort keeps beside its rows
/// so that most pairs are ordered without reading the values. The upper two bits of a digit are its
/// kind.
struct SortLead {
    static constexpr std::size_t kDigits = 4;
    static constexpr int kKindShift = 30;
    /// Digits of kinds 0 and 1 are ordered within their kind. Digits of this kind can only be equal
    /// or different.
    static constexpr std::uint32_t kOpenKind = 2;
    /// Fills the places after the last digit of a value that has ended.
    static constexpr std::uint32_t kEnd = std::uint32_t{3} << kKindShift;

    /// -1 or 1 by the first digits that differ, or 0 for values that end without a difference. A
    /// value goes before one that is its beginning. Nothing where the digits do not decide and
    /// Compare must be called.
    std::optional<std::int32_t> Decide(const SortLead& other) const {
        for (std::size_t i = 0; i < kDigits; ++i) {
            const std::uint32_t mine = digits[i];
            const std::uint32_t others = other.digits[i];
            if (mine == others) continue;
            const std::uint32_t kind = mine >> kKindShift;
            const bool comparable = kind == others >> kKindShift && kind < kOpenKind;
            if (!comparable && std::max(mine, others) != kEnd) return std::nullopt;
            return mine < others ? -1 : 1;
        }
        if (digits.back() == kEnd) return 0;
        return std::nullopt;
    }

    std::array<std::uint32_t, kDigits> digits{};
};

/// The values of a field prepared for many comparisons, addressed by position.
struct IPreparedValues : virtual IHostObject {
    virtual SortLead Lead(std::uint32_t position) const = 0;
    /// The result of the callback's Compare for the two values.
    virtual std::int32_t Compare(std::uint32_t position1, std::uint32_t position2) const = 0;
};

/// Optional on the callback of a table sort; a sort may ignore it.
struct ITableSortPreparation : virtual IHostObject {
    /// Null where some value cannot be prepared; the sort then calls Compare.
    virtual Ref<IPreparedValues> Prepare(const SortValues& values, std::int32_t fieldIndex,
                                         std::int32_t fieldSortIndex) = 0;
};

}  // namespace host
