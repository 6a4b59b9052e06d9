#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace desk {

/// Remembers widths of recent lines. Each line has one place by its hash and puts out the line that
/// stood there, so the memory is bounded and nothing has to be kept in order.
class WidthMemo {
public:
    /// The width remembered, or the one that measuring tells.
    template <class Measure>
    double Find(std::uint32_t font, std::string_view line, const Measure& measure) {
        if (line.size() > kLongestLine) return measure();
        Entry& entry = entries_[Hash(font, line) % kEntries];
        if (entry.font != font || entry.line != line) {
            entry.width = measure();
            entry.font = font;
            entry.line.assign(line);
        }
        return entry.width;
    }

private:
    static constexpr std::size_t kEntries = std::size_t{1} << 14;
    static constexpr std::size_t kLongestLine = 256;  ///< Bytes; longer lines seldom come again.

    static std::size_t Hash(std::uint32_t font, std::string_view line) {
        return std::hash<std::string_view>{}(line) + font * std::size_t{0x9E3779B97F4A7C15U};
    }

    struct Entry {
        std::uint32_t font = UINT32_MAX;  ///< No font has this number.
        std::string line;
        double width = 0;
    };
    std::vector<Entry> entries_ = std::vector<Entry>(kEntries);
};

}  // namespace desk
