#include "desk/objects/VariantItems.h"

#include <limits>
#include <utility>

#include "host/Failure.h"

namespace desk {

namespace {

/// Removed entries that are always kept; above this number, until they are the majority.
constexpr std::size_t kFewGaps = 32;

/// Maximum load factor of the index.
constexpr float kFullestIndex = 0.8F;

}  // namespace

VariantItems::VariantItems() {
    index_.max_load_factor(kFullestIndex);
}

const host::Variant* VariantItems::Find(std::string_view name) const {
    const auto found = index_.find(name);
    return found == index_.end() ? nullptr : &entries_[*found].value;
}

void VariantItems::Set(std::string_view name, host::Variant value) {
    const auto found = index_.find(name);
    if (found == index_.end()) {
        Append(name, std::move(value));
    } else {
        // The old value is destroyed last, since its destructor may call this set.
        std::swap(entries_[*found].value, value);
    }
}

bool VariantItems::Append(std::string_view name, host::Variant value) {
    if (entries_.size() >= std::numeric_limits<std::int32_t>::max()) {
        throw host::Failure(host::kFailureOutOfMemory, "PropertySet.SetItem",
                            "A property set is full.");
    }
    entries_.push_back({std::string(name), std::move(value), true});
    bool isNew = false;
    try {
        isNew = index_.insert(static_cast<std::uint32_t>(entries_.size() - 1)).second;
    } catch (...) {
        entries_.pop_back();
        throw;
    }
    if (!isNew) entries_.pop_back();
    return isNew;
}

void VariantItems::Remove(std::string_view name) {
    const auto found = index_.find(name);
    if (found == index_.end()) return;
    const std::uint32_t position = *found;
    index_.erase(found);
    const Entry removed = std::exchange(entries_[position], Entry{{}, {}, false});
    const std::size_t gaps = entries_.size() - index_.size();
    if (gaps > kFewGaps && gaps > index_.size()) CloseGaps();
}

void VariantItems::CloseGaps() {
    index_.clear();
    std::erase_if(entries_, [](const Entry& entry) { return !entry.live; });
    for (std::size_t position = 0; position < entries_.size(); ++position)
        index_.insert(static_cast<std::uint32_t>(position));
}

void VariantItems::Reserve(std::size_t count) {
    entries_.reserve(count);
    index_.reserve(count);
}

}  // namespace desk
