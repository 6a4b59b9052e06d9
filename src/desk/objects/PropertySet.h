#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <tsl/robin_set.h>
#include <vector>

#include "host/PropertySet.h"

namespace desk {

/// The desk's property set. Reading, storing and removing a key take constant time on average,
/// also among a million keys; the order of first entry holds through all of them.
class PropertySet final : public host::IHostPropertySet {
public:
    PropertySet();

    std::int32_t Count() const override;
    host::Variant Item(const std::string& name) const override;
    host::PropertyItems AllItems() const override;
    void SetItem(const std::string& name, host::Variant value) override;
    void RemoveItem(const std::string& name) override;
    /// Copies sets and symbols inside, however deep. Fails for a set that holds itself.
    host::Ref<host::IHostObject> Copy() const override;

    /// Makes room for that many keys in all.
    void Reserve(std::size_t count);

    /// Stores a value under a name that is not there yet. False, and nothing stored, if it is.
    bool Append(std::string_view name, host::Variant value);

    /// Hands every name and value in order to the visitor, without copying them.
    template <class Visitor>
    void Visit(Visitor&& visitor) const {
        for (const auto& entry : entries_)
            if (entry.live) visitor(entry.name, entry.value);
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

    const Entry* Find(std::string_view name) const;
    void CloseGaps();

    Entries entries_;
    Index index_{0, Hash{&entries_}, Equal{&entries_}};
};

class ObjectCopy final : public host::IHostObjectCopy {
public:
    /// Null gives null. Fails for an object that cannot be copied.
    host::Ref<host::IHostObject> Copy(const host::Ref<host::IHostObject>& object) override;
};

}  // namespace desk
