#include "desk/tables/ScratchCells.h"

#include <cstring>
#include <limits>
#include <string>
#include <type_traits>

#include "host/Failure.h"

namespace desk {
namespace {

constexpr std::size_t kChunkBytes = std::size_t{64} * 1024;
using Length = std::uint32_t;

}  // namespace

std::string_view ScratchCells::Text::View() const {
    Length length = 0;
    std::memcpy(&length, place, sizeof length);
    return {place + sizeof length, length};
}

ScratchCells::Text ScratchCells::Keep(std::string_view text) {
    if (text.size() > std::numeric_limits<Length>::max())
        throw host::Failure(host::kFailureOverflow, "ScratchTable", "The text is too long.");
    const auto length = static_cast<Length>(text.size());
    const std::size_t bytes = sizeof length + text.size();
    char* place = room_;
    if (bytes > kChunkBytes / 4) {
        place = chunks_.emplace_back(std::make_unique_for_overwrite<char[]>(bytes)).get();
    } else {
        if (bytes > roomBytes_) {
            place = chunks_.emplace_back(std::make_unique_for_overwrite<char[]>(kChunkBytes)).get();
            roomBytes_ = kChunkBytes;
        }
        room_ = place + bytes;
        roomBytes_ -= bytes;
    }
    std::memcpy(place, &length, sizeof length);
    text.copy(place + sizeof length, text.size());
    return {place};
}

void ScratchCells::Store(std::size_t position, const host::Variant& value) {
    while (position / kBlockCells >= blocks_.size())
        blocks_.push_back(std::make_unique<Cell[]>(kBlockCells));
    Cell& cell = blocks_[position / kBlockCells][position % kBlockCells];
    std::visit(
        [&]<class T>(const T& content) {
            if constexpr (std::is_same_v<T, std::string>) {
                cell = Keep(content);
            } else if constexpr (std::is_same_v<T, host::Ref<host::IHostObject>>) {
                cell = Object{objects_.size()};
                objects_.push_back(content);
            } else {
                cell = content;
            }
        },
        value);
}

const host::Variant& ScratchCells::Value(std::size_t position, host::Variant& storage) const {
    std::visit(
        [&]<class T>(const T& content) {
            if constexpr (std::is_same_v<T, Text>) {
                if (auto* const text = std::get_if<std::string>(&storage))
                    text->assign(content.View());
                else
                    storage.emplace<std::string>(content.View());
            } else if constexpr (std::is_same_v<T, Object>) {
                storage = objects_[content.position];
            } else {
                storage = content;
            }
        },
        At(position));
    return storage;
}

}  // namespace desk
