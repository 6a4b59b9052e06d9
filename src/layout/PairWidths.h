#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/Host.h"

namespace gazetteer {

/// Widths of lines in one symbol, summed up from what the host tells of their steps. What a step is
/// in any line of Latin text is asked for once, so that most lines of an index take no question of
/// their own. Widths are in points.
class PairWidths {
public:
    PairWidths(host::Ref<host::IHostDisplay> display,
               const host::Ref<host::IHostTextSymbol>& symbol);

    /// The width of a line of Latin text. Nothing for a line that has to be measured.
    std::optional<double> Width(const std::string& line);

    /// The widths of those beginnings of a line that end before the given bytes, which ascend and
    /// stand between characters, in one question at most. False, and nothing of use told, where
    /// each has to be measured.
    bool Prefixes(const std::string& line, std::span<const std::size_t> ends,
                  std::vector<double>& widths);

    /// Whether a line takes dots at its end in steps that are all the same.
    bool TakesDots(const std::string& line);

    /// Of any line. Nothing as long as no line was asked for.
    std::optional<double> LineHeight() const { return lineHeight_; }

private:
    using Slot = std::uint8_t;
    using Steps = std::array<double, 128>;  ///< By the slot of the character that follows.
    static constexpr Slot kNoCharacter = 0;
    static constexpr Slot kLastSlot = 127;     ///< More than any index in one language takes.
    static constexpr char32_t kLimit = 0x250;  ///< Behind the last of the Latin blocks in a row.
    static constexpr double kNotAsked = std::numeric_limits<double>::quiet_NaN();
    static constexpr double kNotGeneral = std::numeric_limits<double>::infinity();

    Slot NewSlot();
    Slot SlotAt(const std::string& line, std::size_t& place);
    template <class Visitor>
    std::optional<double> WalkKnown(const std::string& line, const Visitor& visit);
    template <class Visitor>
    bool WalkAsked(const std::string& line, const Visitor& visit);
    bool Ask(const std::string& line);
    void Learn(const std::string& line, bool told);

    host::Ref<host::IHostDisplay> display_;
    host::Ref<host::IHostTextSteps> host_;  ///< Null where the host has none.
    std::array<Slot, kLimit> slots_{};      ///< Of the characters met so far.
    std::vector<Steps> steps_;              ///< By the slot of the character before.
    host::TextSteps asked_;                 ///< Of the line asked for last.
    std::optional<double> lineHeight_;
};

}  // namespace gazetteer
