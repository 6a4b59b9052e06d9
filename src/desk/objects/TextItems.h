#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace desk {

/// Names and texts in the order of first entry, packed for very large sets: all bytes are in one
/// block, so half a million entries are copied and freed as three blocks. Entries can only be
/// added; a set that changes or removes entries uses VariantItems.
class TextItems {
public:
    std::size_t Count() const { return entries_.size(); }

    /// Returns the text of a name, valid until the next entry, or nothing for an absent name.
    std::optional<std::string_view> Find(std::string_view name) const;

    /// Returns whether an entry of that size fits: offsets and counts have 32 bits.
    bool HasRoomFor(std::string_view name, std::string_view text) const;

    /// Adds a text under a new name; there must be room for it. Returns false and adds nothing if
    /// the name exists.
    bool Append(std::string_view name, std::string_view text);

    /// Bulk entry. Add appends an entry without checking its name; IndexNames must follow before
    /// any other call and returns the position of a duplicate name, if any. Building the index once
    /// in its final size reduces reading a document of 550,000 listings and drawing a page from
    /// 0.23 s to 0.20.
    void Add(std::string_view name, std::string_view text);
    std::optional<std::size_t> IndexNames();

    std::string_view Name(std::size_t position) const;
    std::string_view Text(std::size_t position) const;

private:
    /// Offsets in bytes_. The text follows its name, and the next name follows the text.
    struct Entry {
        std::uint32_t name;
        std::uint32_t text;
    };
    /// A slot of the hash table: the entry, counted from 1 (0: free), and the hash of its name, so
    /// that names are compared only if their hashes are equal.
    struct Slot {
        std::uint32_t number = 0;
        std::uint32_t hash = 0;
    };

    /// Returns the slot with the name, or the free slot for it. There must be a free one.
    std::size_t SlotOf(std::string_view name, std::uint32_t hash) const;
    /// Enlarges the table for that many entries in all.
    void Grow(std::size_t count);

    std::string bytes_;
    std::vector<Entry> entries_;
    std::vector<Slot> slots_;  ///< Their number is a power of two, or 0.
    /// Index after the entry found last, since most sets are read in order.
    mutable std::size_t next_ = 0;
};

}  // namespace desk
