#include "desk/objects/PropertySet.h"

#include <functional>
#include <limits>
#include <memory>
#include <utility>

#include "host/Failure.h"

namespace desk {

namespace {

/// Removed entries that a set carries along before it looks whether it pays to close the gaps.
constexpr std::size_t kFewGaps = 32;

/// The part of the index that may be in use before it grows: dense, as sets of a run are large.
constexpr float kFullestIndex = 0.8F;

/// Far deeper than any stored setting; only a set that holds itself comes here.
constexpr int kDeepestNesting = 100;

/// Counts the sets inside sets while one is being copied.
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

}  // namespace

PropertySet::PropertySet() {
    index_.max_load_factor(kFullestIndex);
}

std::size_t PropertySet::Hash::operator()(std::string_view name) const {
    return std::hash<std::string_view>{}(name);
}

std::size_t PropertySet::Hash::operator()(std::uint32_t position) const {
    return (*this)(std::string_view((*entries)[position].name));
}

bool PropertySet::Equal::operator()(std::uint32_t left, std::uint32_t right) const {
    return (*entries)[left].name == (*entries)[right].name;
}

bool PropertySet::Equal::operator()(std::uint32_t position, std::string_view name) const {
    return (*entries)[position].name == name;
}

bool PropertySet::Equal::operator()(std::string_view name, std::uint32_t position) const {
    return (*entries)[position].name == name;
}

const PropertySet::Entry* PropertySet::Find(std::string_view name) const {
    const auto found = index_.find(name);
    return found == index_.end() ? nullptr : &entries_[*found];
}

std::int32_t PropertySet::Count() const {
    return static_cast<std::int32_t>(index_.size());
}

host::Variant PropertySet::Item(const std::string& name) const {
    if (const Entry* entry = Find(name)) return entry->value;
    throw host::Failure(host::kFailureNotFound, "PropertySet.Item",
                        "There is no property named \"" + name + "\".");
}

host::PropertyItems PropertySet::AllItems() const {
    host::PropertyItems items;
    items.names.reserve(index_.size());
    items.values.reserve(index_.size());
    Visit([&](const std::string& name, const host::Variant& value) {
        items.names.push_back(name);
        items.values.push_back(value);
    });
    return items;
}

void PropertySet::SetItem(const std::string& name, host::Variant value) {
    const auto found = index_.find(std::string_view(name));
    if (found == index_.end()) {
        Append(name, std::move(value));
    } else {
        // The old value goes last: its destruction may reach back into this set.
        std::swap(entries_[*found].value, value);
    }
}

bool PropertySet::Append(std::string_view name, host::Variant value) {
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

void PropertySet::RemoveItem(const std::string& name) {
    const auto found = index_.find(std::string_view(name));
    if (found == index_.end()) return;
    const std::uint32_t position = *found;
    index_.erase(found);
    const Entry removed = std::exchange(entries_[position], Entry{{}, {}, false});
    const std::size_t gaps = entries_.size() - index_.size();
    if (gaps > kFewGaps && gaps > index_.size()) CloseGaps();
}

void PropertySet::CloseGaps() {
    index_.clear();
    std::erase_if(entries_, [](const Entry& entry) { return !entry.live; });
    for (std::size_t position = 0; position < entries_.size(); ++position)
        index_.insert(static_cast<std::uint32_t>(position));
}

void PropertySet::Reserve(std::size_t count) {
    entries_.reserve(count);
    index_.reserve(count);
}

host::Ref<host::IHostObject> PropertySet::Copy() const {
    const NestingGuard guard;
    auto copy = std::make_shared<PropertySet>();
    copy->Reserve(index_.size());
    Visit([&](const std::string& name, const host::Variant& value) {
        copy->Append(name, CopyOf(value));
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
