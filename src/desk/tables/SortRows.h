#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "desk/tables/Scratch.h"
#include "host/SortPreparation.h"

namespace desk {

/// Called every few thousand steps of a sort; what it throws ends the sort.
using SortListener = std::function<void(std::int64_t step, std::int64_t steps)>;

/// Calls a listener once per kPause steps of a sort, about every millisecond.
class SortPauses {
public:
    /// A row takes a step for its key, one for its lead, and one for each round of merging.
    SortPauses(const SortListener& listener, std::uint32_t rows)
        : listener_(listener), steps_(std::int64_t{rows} * (std::bit_width(rows) + 2)) {}

    void Step(std::int64_t count = 1) {
        step_ += count;
        if (step_ >= next_) Pause();
    }
    void Pause() {
        next_ = step_ + kPause;
        if (listener_) listener_(std::min(step_, steps_), steps_);
    }

private:
    static constexpr std::int64_t kPause = 4096;

    const SortListener& listener_;
    std::int64_t steps_;
    std::int64_t step_ = 0;
    std::int64_t next_ = kPause;
};

/// The rows to sort, with their key values. A scratch table provides its values directly; rows of
/// any other table are fetched once.
class SortRows {
public:
    /// Takes the rows selected by a filter; the keys are field indexes.
    SortRows(const host::Ref<host::IHostTable>& table,
             const host::Ref<host::IHostQueryFilter>& filter,
             const std::vector<std::int32_t>& keys);

    std::uint32_t Count() const;
    /// Returns the value of a sort key, counted from 0; see SortValues::Value.
    const host::Variant& Value(std::uint32_t row, std::size_t key, host::Variant& storage) const {
        return scratch_ ? scratch_->Value(row, keys_[key], storage)
                        : values_[row * keys_.size() + key];
    }
    host::Ref<host::IHostCursor> InOrder(const std::vector<std::uint32_t>& order) const;

private:
    host::Ref<ScratchTable> scratch_;  ///< Null for other tables.
    std::vector<std::size_t> keys_;
    std::deque<host::Variant> values_;
    std::vector<host::Ref<host::IHostRow>> rows_;
};

/// A sort key. Compares values by the callback's prepared values, or by its Compare if it prepares
/// none. Values are prepared on first use, because a second key is needed only for ties.
class SortKey {
public:
    struct Field {
        std::int32_t index = 0;      ///< In the table.
        std::int32_t sortIndex = 0;  ///< Among the keys.
        bool ascending = true;
    };

    SortKey(const Field& field, const SortRows& rows, host::ITableSortCallBack& callback,
            SortPauses& pauses)
        : field_(field), rows_(rows), callback_(callback), pauses_(pauses) {}

    /// Negative if row1 goes first, positive if row2 does, 0 for a tie.
    std::int32_t Compare(std::uint32_t row1, std::uint32_t row2) {
        return Directed(Prepared() ? prepared_->Compare(row1, row2) : Ask(row1, row2));
    }
    /// The same if the leads of the rows decide it, else nothing.
    std::optional<std::int32_t> Decide(const host::SortLead& lead1,
                                       const host::SortLead& lead2) const {
        const auto answer = lead1.Decide(lead2);
        return answer ? std::optional(Directed(*answer)) : std::nullopt;
    }
    host::SortLead Lead(std::uint32_t row) {
        return Prepared() ? prepared_->Lead(row) : host::SortLead();
    }

private:
    std::int32_t Directed(std::int32_t answer) const {
        return field_.ascending ? answer : (answer < 0) - (answer > 0);
    }
    bool Prepared() {
        if (!isTried_) Prepare();
        return prepared_ != nullptr;
    }
    void Prepare();
    std::int32_t Ask(std::uint32_t row1, std::uint32_t row2);

    Field field_;
    const SortRows& rows_;
    host::ITableSortCallBack& callback_;
    SortPauses& pauses_;
    bool isTried_ = false;
    host::Ref<host::IPreparedValues> prepared_;
    host::Variant storage1_, storage2_;
};

}  // namespace desk
