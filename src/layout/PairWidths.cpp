#include "layout/PairWidths.h"

#include <cmath>

#include "layout/CodePoints.h"
#include "layout/DrawingBracket.h"

namespace gazetteer {

PairWidths::PairWidths(host::Ref<host::IHostDisplay> display,
                       const host::Ref<host::IHostTextSymbol>& symbol)
    : display_(std::move(display)), host_(host::As<host::IHostTextSteps>(symbol)) {
    if (host_) NewSlot();
}

std::optional<double> PairWidths::Width(const std::string& line) {
    const auto nothing = [](std::size_t /*place*/, double /*width*/) {};
    auto width = WalkKnown(line, nothing);
    if (width && std::isnan(*width) && Ask(line)) {
        width = 0;
        for (const host::TextStep& step : asked_.steps) *width += step.width;
    }
    return width && std::isfinite(*width) ? width : std::nullopt;
}

bool PairWidths::Prefixes(const std::string& line, std::span<const std::size_t> ends,
                          std::vector<double>& widths) {
    const auto takeEndsAt = [&](std::size_t place, double width) {
        while (widths.size() < ends.size() && ends[widths.size()] == place) widths.push_back(width);
    };
    const auto begin = [&] {
        widths.clear();
        takeEndsAt(0, 0);
    };
    begin();
    const auto width = WalkKnown(line, takeEndsAt);
    if (width && std::isfinite(*width)) return widths.size() == ends.size();
    begin();
    return WalkAsked(line, takeEndsAt) && widths.size() == ends.size();
}

bool PairWidths::TakesDots(const std::string& line) {
    if (!host_) return false;
    for (std::size_t place = 0; place < line.size();)
        if (SlotAt(line, place) == kNoCharacter) return false;
    const Slot dot = slots_[U'.'];
    return dot != kNoCharacter && std::isfinite(steps_[dot][dot]);
}

// Visits the end of each character with the width of the line as far as there. Returns the width:
// infinite where a step is not general, no number where one was not asked for yet. Nothing for a
// line that is not of Latin text.
template <class Visitor>
std::optional<double> PairWidths::WalkKnown(const std::string& line, const Visitor& visit) {
    if (!host_) return std::nullopt;
    double width = 0;
    Slot before = kNoCharacter;
    for (std::size_t place = 0; place < line.size();) {
        const Slot slot = SlotAt(line, place);
        if (slot == kNoCharacter) return std::nullopt;
        width += steps_[before][slot];
        visit(place, width);
        before = slot;
    }
    return width;
}

// The same by the steps of this line alone, whatever it is made of.
template <class Visitor>
bool PairWidths::WalkAsked(const std::string& line, const Visitor& visit) {
    if (!host_ || !Ask(line)) return false;
    double width = 0;
    std::size_t place = 0;
    for (const host::TextStep& step : asked_.steps) {
        for (++place; place < line.size() && IsContinuation(line[place]);) ++place;
        width += step.width;
        visit(place, width);
    }
    return true;
}

// A text of several lines is as wide as its widest, which is no sum.
bool PairWidths::Ask(const std::string& line) {
    if (line.find('\n') != std::string::npos) return false;
    bool told = InDrawingBracket(*display_, [&](auto device, const auto& transformation) {
        return host_->MeasureSteps(device, transformation, line, asked_);
    });
    told = told && asked_.steps.size() == CountCodePoints(line);
    if (told) lineHeight_ = asked_.height;
    Learn(line, told);
    return told;
}

// What was not told once is not asked for again.
void PairWidths::Learn(const std::string& line, bool told) {
    Slot before = kNoCharacter;
    std::size_t index = 0;
    for (std::size_t place = 0; place < line.size(); ++index) {
        const Slot slot = SlotAt(line, place);
        if (slot == kNoCharacter) return;
        double& step = steps_[before][slot];
        if (std::isnan(step)) step = kNotGeneral;
        if (told && asked_.steps[index].general) step = asked_.steps[index].width;
        before = slot;
    }
}

// Of the character at the place, which is then moved behind it.
PairWidths::Slot PairWidths::SlotAt(const std::string& line, std::size_t& place) {
    char32_t character = static_cast<unsigned char>(line[place++]);
    if (character >= 0x80) {
        constexpr char32_t kOfLatin = 0xC9;  // Begins U+0240 to U+027F.
        if (character < 0xC2 || character > kOfLatin) return kNoCharacter;
        if (place == line.size() || !IsContinuation(line[place])) return kNoCharacter;
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

}  // namespace gazetteer
