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

/// Values by position from 0: 16 bytes each, and the bytes of the texts in chunks.
class ScratchCells {
public:
    /// Makes room up to the position as needed.
    void Store(std::size_t position, const host::Variant& value);
    /// The value put into the storage, where a text takes the room of the text before.
    const host::Variant& Value(std::size_t position, host::Variant& storage) const;

    /// Tells the processor that the cell at the position is asked for soon; or that its text is,
    /// which looks at the cell.
    void FetchCell(std::size_t position) const { __builtin_prefetch(&At(position)); }
    void FetchText(std::size_t position) const {
        if (const auto* const text = std::get_if<Text>(&At(position)))
            __builtin_prefetch(text->place);
    }

private:
    /// A text's length in 4 bytes, then its bytes.
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
    char* room_ = nullptr;                         ///< What is left of a chunk.
    std::size_t roomBytes_ = 0;
};

}  // namespace desk
