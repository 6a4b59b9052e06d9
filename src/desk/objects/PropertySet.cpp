#include "desk/objects/PropertySet.h"

#include <algorithm>
#include <utility>

#include "desk/objects/Depth.h"
#include "host/Failure.h"

namespace desk {

namespace {

/// Limits the nesting of sets during a copy. Only a set that contains itself reaches the limit.
class NestingGuard {
public:
    NestingGuard() {
        if (depth_ >= kDeepestNesting) {
            throw host::Failure(host::kFailureUnspecified, "PropertySet.Copy",
                                "A property set that holds itself cannot be copied.");
        }
        ++depth_;
    }
    NestingGuard(const NestingGuard&) = delete;
    NestingGuard& operator=(const NestingGuard&) = delete;
    ~NestingGuard() { --depth_; }

private:
    static thread_local int depth_;
};

thread_local int NestingGuard::depth_ = 0;

host::Variant CopyOf(const host::Variant& value) {
    const auto* object = std::get_if<host::Ref<host::IHostObject>>(&value);
    if (object == nullptr) return value;
    const auto clonable = host::As<host::IHostClonable>(*object);
    return clonable ? host::Variant(clonable->Copy()) : value;
}

host::Variant VariantOf(std::string_view text) {
    return std::string(text);
}
const host::Variant& VariantOf(const host::Variant& value) {
    return value;
}

}  // namespace

PropertySet::PropertySet() : texts_(std::make_shared<TextItems>()) {}

PropertySet::PropertySet(std::shared_ptr<TextItems> texts) : texts_(std::move(texts)) {}

// Returns the packed texts for writing; copies them first if another set shares them.
TextItems& PropertySet::OwnTexts() {
    if (texts_.use_count() > 1) texts_ = std::make_shared<TextItems>(*texts_);
    return *texts_;
}

VariantItems& PropertySet::GeneralItems() {
    if (items_) return *items_;
    auto items = std::make_unique<VariantItems>();
    items->Reserve(texts_->Count());
    Visit([&](std::string_view name, const auto& value) { items->Append(name, VariantOf(value)); });
    items_ = std::move(items);
    texts_ = nullptr;
    return *items_;
}

std::int32_t PropertySet::Count() const {
    return static_cast<std::int32_t>(items_ ? items_->Count() : texts_->Count());
}

host::Variant PropertySet::Item(const std::string& name) const {
    if (items_) {
        if (const auto* value = items_->Find(name)) return *value;
    } else if (const auto text = texts_->Find(name)) {
        return VariantOf(*text);
    }
    throw host::Failure(host::kFailureNotFound, "PropertySet.Item",
                        "There is no property named \"" + name + "\".");
}

host::PropertyItems PropertySet::AllItems() const {
    host::PropertyItems items;
    items.names.reserve(static_cast<std::size_t>(Count()));
    items.values.reserve(static_cast<std::size_t>(Count()));
    Visit([&](std::string_view name, const auto& value) {
        items.names.emplace_back(name);
        items.values.push_back(VariantOf(value));
    });
    return items;
}

std::vector<std::string> PropertySet::FirstNames(std::size_t most) const {
    const std::size_t count = std::min(most, static_cast<std::size_t>(Count()));
    std::vector<std::string> names;
    names.reserve(count);
    if (items_) {
        items_->Visit([&](std::string_view name, const host::Variant&) {
            if (names.size() < count) names.emplace_back(name);
        });
    } else {
        for (std::size_t i = 0; i < count; ++i) names.emplace_back(texts_->Name(i));
    }
    return names;
}

void PropertySet::SetItem(const std::string& name, host::Variant value) {
    if (const auto* text = std::get_if<std::string>(&value); text != nullptr && !items_) {
        const auto known = texts_->Find(name);
        if (known == *text) return;
        if (!known && texts_->HasRoomFor(name, *text)) {
            OwnTexts().Append(name, *text);
            return;
        }
    }
    GeneralItems().Set(name, std::move(value));
}

bool PropertySet::Append(std::string_view name, host::Variant value) {
    const auto* text = std::get_if<std::string>(&value);
    if (!items_ && text != nullptr && texts_->HasRoomFor(name, *text))
        return OwnTexts().Append(name, *text);
    return GeneralItems().Append(name, std::move(value));
}

void PropertySet::RemoveItem(const std::string& name) {
    if (items_ || texts_->Find(name)) GeneralItems().Remove(name);
}

host::Ref<host::IHostObject> PropertySet::Copy() const {
    if (!items_) return std::make_shared<PropertySet>(texts_);
    const NestingGuard guard;
    auto copy = std::make_shared<PropertySet>();
    auto& items = copy->GeneralItems();
    items.Reserve(items_->Count());
    items_->Visit([&](std::string_view name, const host::Variant& value) {
        items.Append(name, CopyOf(value));
    });
    return copy;
}

host::Ref<host::IHostObject> ObjectCopy::Copy(const host::Ref<host::IHostObject>& object) {
    if (!object) return nullptr;
    if (const auto clonable = host::As<host::IHostClonable>(object)) return clonable->Copy();
    throw host::Failure(host::kFailureTypeMismatch, "ObjectCopy.Copy",
                        "The object is of a kind that cannot be copied.");
}

}  // namespace desk
