#include "layout/PairWidths.h"

#include <cmath>

#include "layout/DrawingBracket.h"

namespace gazetteer {
PairWidths::PairWidths(host::Ref<host::IHostDisplay> display,
                       const host::Ref<host::IHostTextSymbol>& symbol)
    : display_(std::move(display)), pairs_(host::As<host::IHostPairWidths>(symbol)) {
    if (pairs_) NewSlot();
}

std::optional<double> PairWidths::Width(std::string_view line) {
    return Walk(line, [](std::size_t /*place*/, double /*width*/) {});
}

bool PairWidths::Prefixes(std::string_view line, std::span<const std::size_t> ends,
                          std::vector<double>& widths) {
    widths.clear();
    const auto takeEndsAt = [&](std::size_t place, double width) {
        while (widths.size() < ends.size() && ends[widths.size()] == place) widths.push_back(width);
    };
    takeEndsAt(0, 0);
    return Walk(line, takeEndsAt) && widths.size() == ends.size();
}

// Visits the end of each character with the width of the line as far as there.
template <class Visitor>
std::optional<double> PairWidths::Walk(std::string_view line, const Visitor& visit) {
    if (!pairs_) return std::nullopt;
    double width = 0;
    Slot before = kNoCharacter;
    std::size_t beforeStart = 0;
    for (std::size_t place = 0; place < line.size();) {
        const std::size_t start = place;
        const Slot slot = SlotAt(line, place);
        if (slot == kNoCharacter) return std::nullopt;
        double& step = steps_[before][slot];
        if (std::isnan(step))
            step = Ask(line.substr(beforeStart, start - beforeStart),
                       line.substr(start, place - start));
        width += step;
        visit(place, width);
        before = slot;
        beforeStart = start;
    }
    return width < kNotTold ? std::optional(width) : std::nullopt;
}

// Of the character at the place, which is then moved behind it.
PairWidths::Slot PairWidths::SlotAt(std::string_view line, std::size_t& place) {
    char32_t character = static_cast<unsigned char>(line[place++]);
    if (character >= 0x80) {
        constexpr char32_t kOfLatin = 0xC9;  // Begins U+0240 to U+027F.
        if (character < 0xC2 || character > kOfLatin || place == line.size()) return kNoCharacter;
        character = (character & 0x1FU) << 6 | (static_cast<unsigned char>(line[place++]) & 0x3FU);
        if (character >= kLimit) return kNoCharacter;
    }
    Slot& slot = slots_[character];
    if (slot == kNoCharacter && steps_.size() <= kLastSlot) slot = NewSlot();
    return slot;
}

PairWidths::Slot PairWidths::NewSlot() {
    steps_.emplace_back().fill(kNotAsked);
    return static_cast<Slot>(steps_.size() - 1);
}

double PairWidths::Ask(std::string_view before, std::string_view character) {
    return InDrawingBracket(*display_, [&](auto device, const auto& transformation) {
        return pairs_->AddedWidth(device, transformation, before, character).value_or(kNotTold);
    });
}

}  // namespace gazetteer
