#include "desk/objects/TextItems.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <limits>

namespace desk {

namespace {

constexpr std::size_t kFewestSlots = 8;

constexpr std::size_t kMostBytes = std::numeric_limits<std::uint32_t>::max();

/// Keeps the load of the table at three quarters or less, so that searches stay short.
std::size_t SlotsFor(std::size_t count) {
    return std::bit_ceil(std::max(kFewestSlots, count + count / 3 + 1));
}

std::uint32_t HashOf(std::string_view name) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>{}(name));
}

}  // namespace

std::optional<std::string_view> TextItems::Find(std::string_view name) const {
    if (next_ < entries_.size() && Name(next_) == name) return Text(next_++);
    if (slots_.empty()) return std::nullopt;
    const Slot slot = slots_[SlotOf(name, HashOf(name))];
    if (slot.number == 0) return std::nullopt;
    next_ = slot.number;
    return Text(slot.number - 1);
}

std::size_t TextItems::SlotOf(std::string_view name, std::uint32_t hash) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t place = hash & mask;
    for (;; place = (place + 1) & mask) {
        const Slot slot = slots_[place];
        if (slot.number == 0) return place;
        if (slot.hash == hash && Name(slot.number - 1) == name) return place;
    }
}

bool TextItems::HasRoomFor(std::string_view name, std::string_view text) const {
    const std::size_t room = kMostBytes - bytes_.size();
    return name.size() <= room && text.size() <= room - name.size() &&
           entries_.size() < std::numeric_limits<std::int32_t>::max();
}

bool TextItems::Append(std::string_view name, std::string_view text) {
    Grow(entries_.size() + 1);
    const std::uint32_t hash = HashOf(name);
    Slot& slot = slots_[SlotOf(name, hash)];
    if (slot.number != 0) return false;
    Add(name, text);
    slot = {static_cast<std::uint32_t>(entries_.size()), hash};
    return true;
}

void TextItems::Add(std::string_view name, std::string_view text) {
    const std::size_t start = bytes_.size();
    try {
        bytes_.append(name).append(text);
        entries_.push_back(
            {static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(start + name.size())});
    } catch (...) {
        bytes_.resize(start);
        throw;
    }
}

std::optional<std::size_t> TextItems::IndexNames() {
    slots_.clear();
    Grow(entries_.size());
    for (std::size_t position = 0; position < entries_.size(); ++position) {
        const std::uint32_t hash = HashOf(Name(position));
        Slot& slot = slots_[SlotOf(Name(position), hash)];
        if (slot.number != 0) return position;
        slot = {static_cast<std::uint32_t>(position + 1), hash};
    }
    return std::nullopt;
}

void TextItems::Grow(std::size_t count) {
    if (!slots_.empty() && SlotsFor(count) <= slots_.size()) return;
    std::vector<Slot> old(SlotsFor(count));
    old.swap(slots_);
    const std::size_t mask = slots_.size() - 1;
    for (const Slot slot : old) {
        if (slot.number == 0) continue;
        std::size_t place = slot.hash & mask;
        while (slots_[place].number != 0) place = (place + 1) & mask;
        slots_[place] = slot;
    }
}

std::string_view TextItems::Name(std::size_t position) const {
    const Entry entry = entries_[position];
    return {bytes_.data() + entry.name, entry.text - entry.name};
}

std::string_view TextItems::Text(std::size_t position) const {
    const std::size_t start = entries_[position].text;
    const std::size_t next = position + 1;
    return {bytes_.data() + start,
            (next < entries_.size() ? entries_[next].name : bytes_.size()) - start};
}

}  // namespace desk
