#pragma once

#include <algorithm>
#include <functional>
#include <memory_resource>
#include <span>
#include <string_view>
#include <vector>

#include "desk/text/GlyphStore.h"
#include "desk/text/PlainText.h"

namespace desk {

/// A glyph on the baseline, in eight bytes.
struct RunGlyph {
    std::uint32_t id : 24;
    std::uint32_t bytes : 8;  ///< As in Glyph.
    std::int32_t x;           ///< From the start of the run.
};

/// A piece of a line as it was shaped, in 1024ths of a point.
struct ShapedRun {
    GlyphUnits width = 0;
    std::span<const RunGlyph> glyphs;
    bool hasGlyphs = false;    ///< False where a glyph stands off the baseline.
    bool standsAlone = false;  ///< What is around it in the line does not change it.
    bool movesNext = false;    ///< The first glyph behind it stands elsewhere because of it.
    int dotStep = 0;  ///< Advance of each further dot at the end; 0 where they must be shaped.
};

/// Caches the shaped runs of lines, as browsers do: most words of an index recur. Clears itself
/// when it is full.
class ShapedRunCache {
public:
    struct Key {
        std::uint32_t font;
        PlainClass script;
        std::string_view text;
        std::size_t behind = 0;  ///< Bytes at the end of the text that are its context only.
        bool operator==(const Key&) const = default;
    };

    /// Returns the cached run, or makes and caches it. The reference is valid until the next call.
    template <class Make>
    const ShapedRun& Find(const Key& key, const Make& make) {
        const std::size_t hash = HashOf(key);
        for (std::size_t slot = hash % kSlots; slots_[slot]; slot = (slot + 1) % kSlots)
            if (slots_[slot]->hash == hash && slots_[slot]->key == key) return slots_[slot]->run;
        return Keep(key, hash, make());
    }

private:
    struct Entry {
        std::size_t hash;
        Key key;
        ShapedRun run;
    };
    static constexpr std::size_t kSlots = std::size_t{1} << 16;
    static constexpr std::size_t kMostEntries = kSlots / 4 * 3;
    static constexpr std::size_t kMostBytes = std::size_t{6} << 20;
    static constexpr std::size_t kLongestRun = 256;  ///< Bytes; longer ones seldom come again.

    static std::size_t HashOf(const Key& key) {
        const auto kind = key.font * kPlainClassEnd + static_cast<std::size_t>(key.script);
        return std::hash<std::string_view>{}(key.text) + kind * std::size_t{0x9E3779B97F4A7C15U};
    }

    void Clear() {
        std::ranges::fill(slots_, nullptr);
        arena_.release();
        count_ = bytes_ = 0;
    }

    const ShapedRun& Keep(Key key, std::size_t hash, ShapedRun run) {
        if (key.text.size() > kLongestRun) return unkept_ = run;
        bytes_ += sizeof(Entry) + key.text.size() + run.glyphs.size_bytes();
        if (++count_ > kMostEntries || bytes_ > kMostBytes) Clear();
        std::size_t slot = hash % kSlots;
        while (slots_[slot]) slot = (slot + 1) % kSlots;
        void* const place = arena_.allocate(sizeof(Entry), alignof(Entry));
        key.text = {Copy(std::span(key.text)), key.text.size()};
        run.glyphs = {Copy(run.glyphs), run.glyphs.size()};
        slots_[slot] = new (place) Entry{hash, key, run};
        return slots_[slot]->run;
    }

    template <class T>
    T* Copy(std::span<const T> items) {
        T* const copy = static_cast<T*>(arena_.allocate(items.size_bytes(), alignof(T)));
        std::ranges::copy(items, copy);
        return copy;
    }

    std::vector<const Entry*> slots_ = std::vector<const Entry*>(kSlots);  ///< By their hashes.
    std::pmr::monotonic_buffer_resource arena_;
    std::size_t count_ = 0;
    std::size_t bytes_ = 0;
    ShapedRun unkept_;
};

}  // namespace desk
