#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>
#include <variant>
#include <vector>

#include "host/Variant.h"

namespace desk {

/// Values by position from 0: 16 bytes each, with the texts in chunks.
class ScratchCells {
public:
    /// Enlarges the storage as needed.
    void Store(std::size_t position, const host::Variant& value);
    /// Returns the value in the storage; a text reuses the capacity of the storage's previous text.
    const host::Variant& Value(std::size_t position, host::Variant& storage) const;

    /// Prefetch the cell, or its text, for which the cell must be in the cache.
    void FetchCell(std::size_t position) const { __builtin_prefetch(&At(position)); }
    void FetchText(std::size_t position) const {
        if (const auto* const text = std::get_if<Text>(&At(position)))
            __builtin_prefetch(text->place);
    }

private:
    /// The length in 4 bytes, then the text.
    struct Text {
        const char* place;
        std::string_view View() const;
    };
    struct Object {
        std::size_t position;
    };
    using Cell = std::variant<host::Empty, host::Null, bool, std::int16_t, std::int32_t, double,
                              Text, Object>;
    static constexpr std::size_t kBlockCells = 4096;

    Text Keep(std::string_view text);
    const Cell& At(std::size_t position) const {
        return blocks_[position / kBlockCells][position % kBlockCells];
    }

    std::vector<std::unique_ptr<Cell[]>> blocks_;
    std::deque<host::Ref<host::IHostObject>> objects_;
    std::vector<std::unique_ptr<char[]>> chunks_;  ///< Of texts.
    char* room_ = nullptr;                         ///< Free part of the last chunk.
    std::size_t roomBytes_ = 0;
};

}  // namespace desk
