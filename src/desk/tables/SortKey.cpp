#include "desk/tables/SortKey.h"

namespace desk {
namespace {

class KeyValues : public host::SortValues {
public:
    KeyValues(const SortRows& rows, std::size_t key) : rows_(rows), key_(key) {}
    std::uint32_t Count() const override { return rows_.Count(); }
    const host::Variant& Value(std::uint32_t position, host::Variant& storage) const override {
        return rows_.Value(position, key_, storage);
    }

private:
    const SortRows& rows_;
    std::size_t key_;
};

}  // namespace

void SortKey::Prepare() {
    isTried_ = true;
    auto* const preparation = dynamic_cast<host::ITableSortPreparation*>(&callback_);
    if (preparation == nullptr) return;
    const KeyValues values(rows_, static_cast<std::size_t>(field_.sortIndex));
    prepared_ = preparation->Prepare(values, field_.index, field_.sortIndex);
}

std::int32_t SortKey::Ask(std::uint32_t row1, std::uint32_t row2) {
    const auto key = static_cast<std::size_t>(field_.sortIndex);
    return callback_.Compare(rows_.Value(row1, key, storage1_), rows_.Value(row2, key, storage2_),
                             field_.index, field_.sortIndex);
}

}  // namespace desk
