#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "host/Variant.h"

namespace host {

/// Names and values of a property set, in the order of first entry.
struct PropertyItems {
    std::vector<std::string> names;
    std::vector<Variant> values;
};

/// The one container of stored settings: string keys, variant values. The order of the keys is the
/// order of first entry, also after updates and removals, and is saved with the set.
struct IHostPropertySet : virtual IHostClonable {
    virtual std::int32_t Count() const = 0;
    /// The value under the name. Fails for an absent name.
    virtual Variant Item(const std::string& name) const = 0;
    virtual PropertyItems AllItems() const = 0;
    /// Stores a value. A new name goes last, a known one keeps its place.
    virtual void SetItem(const std::string& name, Variant value) = 0;
    /// Takes a name out. Nothing happens for an absent name.
    virtual void RemoveItem(const std::string& name) = 0;
};

/// Optional on a property set: its names without the values. With half a million texts, copying the
/// values is most of the cost of AllItems.
struct IHostPropertyNames : virtual IHostObject {
    /// The first names in their order, at most this many.
    virtual std::vector<std::string> FirstNames(std::size_t most) const = 0;
};

/// Makes deep copies: of a property set with all sets and symbols in it.
struct IHostObjectCopy : virtual IHostObject {
    virtual Ref<IHostObject> Copy(const Ref<IHostObject>& object) = 0;
};

/// Makes property sets, empty or as copies.
struct IHostPropertySetFactory : virtual IHostObject {
    virtual Ref<IHostPropertySet> NewPropertySet() = 0;
    virtual Ref<IHostObjectCopy> NewObjectCopy() = 0;
};

}  // namespace host
