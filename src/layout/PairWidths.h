#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "host/Host.h"

namespace gazetteer {

/// Widths of lines of Latin text in one symbol, summed up from what the host tells of single
/// characters and of pairs. Each pair is asked for once, so that most lines of an index take no
/// question of their own.
class PairWidths {
public:
    PairWidths(host::Ref<host::IHostDisplay> display,
               const host::Ref<host::IHostTextSymbol>& symbol);

    /// The width of a line in points. Nothing for a line that has to be measured.
    std::optional<double> Width(std::string_view line);

    /// The widths in points of those beginnings of a line that end before the given bytes, which
    /// ascend. False, and nothing of use told, where any of them has to be measured.
    bool Prefixes(std::string_view line, std::span<const std::size_t> ends,
                  std::vector<double>& widths);

private:
    using Slot = std::uint8_t;
    using Steps = std::array<double, 128>;  ///< By the slot of the character that follows.
    static constexpr Slot kNoCharacter = 0;
    static constexpr Slot kLastSlot = 127;     ///< More than any index in one language takes.
    static constexpr char32_t kLimit = 0x250;  ///< Behind the last of the Latin blocks in a row.
    static constexpr double kNotAsked = std::numeric_limits<double>::quiet_NaN();
    static constexpr double kNotTold = std::numeric_limits<double>::infinity();

    template <class Visitor>
    std::optional<double> Walk(std::string_view line, const Visitor& visit);
    Slot NewSlot();
    Slot SlotAt(std::string_view line, std::size_t& place);
    double Ask(std::string_view before, std::string_view character);

    host::Ref<host::IHostDisplay> display_;
    host::Ref<host::IHostPairWidths> pairs_;  ///< Null where the host has none.
    std::array<Slot, kLimit> slots_{};        ///< Of the characters met so far.
    std::vector<Steps> steps_;                ///< By the slot of the character before.
};

}  // namespace gazetteer
