#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "desk/objects/TextItems.h"
#include "desk/objects/VariantItems.h"
#include "host/PropertySet.h"

namespace desk {

/// The desk's property set. Reading, storing and removing a key take constant time on average, also
/// with a million keys. Keys keep the order in which they were first stored.
///  While all values are texts and entries are only added, the set uses a packed form, which copies
/// share until one of them is modified. This reduces reading a document of 550,000 listings from
/// 348 MB to 204, opening the property page, which deep-copies it, from 600 ms to 25, and its first
/// edit, which frees that copy, from 97 ms to 2.5. The first value of another type, changed text or
/// removal converts the set to the general form permanently. A set and its copies must be used by
/// one thread.
class PropertySet final : public host::IHostPropertySet, public host::IHostPropertyNames {
public:
    PropertySet();
    /// Creates a set of these texts. Copies them before a change if they are shared.
    explicit PropertySet(std::shared_ptr<TextItems> texts);

    std::int32_t Count() const override;
    host::Variant Item(const std::string& name) const override;
    host::PropertyItems AllItems() const override;
    std::vector<std::string> FirstNames(std::size_t most) const override;
    void SetItem(const std::string& name, host::Variant value) override;
    void RemoveItem(const std::string& name) override;
    /// Deep-copies nested sets and symbols. Throws for a set that contains itself.
    host::Ref<host::IHostObject> Copy() const override;

    /// Stores a value under a new name. Returns false and stores nothing if the name exists.
    bool Append(std::string_view name, host::Variant value);

    /// Calls the visitor with every name and value in order, without copying them. The name is a
    /// std::string_view; the value is a std::string_view in packed form, else a host::Variant.
    template <class Visitor>
    void Visit(Visitor&& visitor) const {
        if (items_) return items_->Visit(visitor);
        for (std::size_t i = 0; i < texts_->Count(); ++i) visitor(texts_->Name(i), texts_->Text(i));
    }

private:
    TextItems& OwnTexts();
    VariantItems& GeneralItems();

    std::shared_ptr<TextItems> texts_;     ///< Null in general form.
    std::unique_ptr<VariantItems> items_;  ///< Null in packed form.
};

class ObjectCopy final : public host::IHostObjectCopy {
public:
    /// Returns null for null. Throws for an object that cannot be copied.
    host::Ref<host::IHostObject> Copy(const host::Ref<host::IHostObject>& object) override;
};

}  // namespace desk
