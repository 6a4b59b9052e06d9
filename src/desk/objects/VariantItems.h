#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <tsl/robin_set.h>
#include <vector>

#include "host/Variant.h"

namespace desk {

/// Names and values of any kind in the order of first entry. Reading, storing and removing a name
/// take constant time on average, also among a million names.
class VariantItems {
public:
    VariantItems();
    VariantItems(const VariantItems&) = delete;
    VariantItems& operator=(const VariantItems&) = delete;
    ~VariantItems() = default;

    std::size_t Count() const { return index_.size(); }

    /// Null for an absent name.
    const host::Variant* Find(std::string_view name) const;

    /// A new name goes last, a known one keeps its place.
    void Set(std::string_view name, host::Variant value);

    /// Stores a value under a name that is not there yet. False, and nothing stored, if it is.
    bool Append(std::string_view name, host::Variant value);

    void Remove(std::string_view name);

    /// Makes room for that many names in all.
    void Reserve(std::size_t count);

    template <class Visitor>
    void Visit(Visitor&& visitor) const {
        for (const auto& entry : entries_)
            if (entry.live) visitor(std::string_view(entry.name), entry.value);
    }

private:
    struct Entry {
        std::string name;
        host::Variant value;
        bool live = true;
    };
    using Entries = std::vector<Entry>;

    /// The index keeps positions and takes the names from the entries, so that no name is stored
    /// twice.
    struct Hash {
        using is_transparent = void;
        const Entries* entries;
        std::size_t operator()(std::string_view name) const;
        std::size_t operator()(std::uint32_t position) const;
    };
    struct Equal {
        using is_transparent = void;
        const Entries* entries;
        bool operator()(std::uint32_t left, std::uint32_t right) const;
        bool operator()(std::uint32_t position, std::string_view name) const;
        bool operator()(std::string_view name, std::uint32_t position) const;
    };
    using Index = tsl::robin_set<std::uint32_t, Hash, Equal, std::allocator<std::uint32_t>, true>;

    void CloseGaps();

    Entries entries_;
    Index index_{0, Hash{&entries_}, Equal{&entries_}};
};

}  // namespace desk
