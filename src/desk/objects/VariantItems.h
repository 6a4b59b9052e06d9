#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <tsl/robin_set.h>
#include <vector>

#include "host/Variant.h"

namespace desk {

/// Names and values of any type in the order of first entry. Reading, storing and removing a name
/// take constant time on average, also with a million names.
class VariantItems {
public:
    VariantItems();
    VariantItems(const VariantItems&) = delete;
    VariantItems& operator=(const VariantItems&) = delete;
    ~VariantItems() = default;

    std::size_t Count() const { return index_.size(); }

    /// Returns null for an absent name.
    const host::Variant* Find(std::string_view name) const;

    /// Appends a new name; a known one keeps its place.
    void Set(std::string_view name, host::Variant value);

    /// Stores a value under a new name. Returns false and stores nothing if the name exists.
    bool Append(std::string_view name, host::Variant value);

    void Remove(std::string_view name);

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

    /// The index holds positions and takes the names from the entries, which store them once.
    struct Names {
        using is_transparent = void;
        const Entries* entries;
        std::string_view Of(std::string_view name) const { return name; }
        std::string_view Of(std::uint32_t position) const { return (*entries)[position].name; }
    };
    struct Hash : Names {
        template <class Key>
        std::size_t operator()(const Key& key) const {
            return std::hash<std::string_view>{}(this->Of(key));
        }
    };
    struct Equal : Names {
        template <class Left, class Right>
        bool operator()(const Left& left, const Right& right) const {
            return this->Of(left) == this->Of(right);
        }
    };
    using Index = tsl::robin_set<std::uint32_t, Hash, Equal, std::allocator<std::uint32_t>, true>;

    void CloseGaps();

    Entries entries_;
    Index index_{0, Hash{{&entries_}}, Equal{{&entries_}}};
};

}  // namespace desk
