#include "desk/drawing/ReadTexts.h"

#include <algorithm>

namespace desk {
namespace {

/// Shows the lines of one text, part by part.
class PartedLines {
public:
    PartedLines(Canvas& canvas, std::string_view text, std::span<const TextPart> parts)
        : canvas_(canvas), text_(text), parts_(parts) {}

    void Show(const PlacedGlyphs::Line& line) {
        if (SkipLineEnds() || at_ == 0) canvas_.BeginLine();
        const std::string_view shown = line.glyphs.text;
        // Glyphs of a line to the left, or of both directions, do not stand in the order of the
        // text.
        const bool inOrder = text_.substr(at_, shown.size()) == shown;
        auto glyphs = line.glyphs.glyphs;
        std::size_t byte = 0;
        while (!glyphs.empty()) {
            const TextPart& part = PartOf(glyphs[0], byte, inOrder);
            const std::size_t start = byte;
            std::size_t count = 0;
            do {
                byte += std::size_t{glyphs[count].bytes} * glyphs[count].count;
                ++count;
            } while (count < glyphs.size() &&
                     (glyphs[count].bytes == 0 || &PartOf(glyphs[count], byte, inOrder) == &part));
            canvas_.SetMeaning(part.meaning);
            canvas_.Show(line.font, {glyphs.first(count), shown.substr(start, byte - start)},
                         line.baseline);
            glyphs = glyphs.subspan(count);
        }
        at_ += shown.size();
    }

private:
    bool SkipLineEnds() {
        const std::size_t start = at_;
        while (at_ < text_.size() && (text_[at_] == '\r' || text_[at_] == '\n')) ++at_;
        return at_ > start;
    }

    /// Returns the part that has the last byte of a glyph. Out of order only a leader is told from
    /// the rest.
    const TextPart& PartOf(const Glyph& glyph, std::size_t byte, bool inOrder) const {
        if (inOrder) return PartAt(at_ + byte + std::size_t{glyph.bytes} * glyph.count - 1);
        const bool leads = glyph.count > 1;
        const auto found = std::ranges::find_if(parts_, [&](const TextPart& part) {
            return part.end > at_ && (part.meaning.role == pdf::Role::Decoration) == leads;
        });
        return found == parts_.end() ? parts_.back() : *found;
    }
    const TextPart& PartAt(std::size_t place) const {
        const auto found =
            std::ranges::find_if(parts_, [&](const TextPart& part) { return part.end > place; });
        return found == parts_.end() ? parts_.back() : *found;
    }

    Canvas& canvas_;
    std::string_view text_;
    std::span<const TextPart> parts_;
    std::size_t at_ = 0;  ///< Bytes of the text that are shown.
};

}  // namespace

void ReadTexts::Add(std::string_view text, std::span<const TextPart> parts, std::size_t firstLine,
                    std::size_t endLine) {
    const std::size_t byte = bytes_.size();
    const std::size_t part = parts_.size();
    bytes_ += text;
    parts_.insert(parts_.end(), parts.begin(), parts.end());
    texts_.push_back({byte, bytes_.size(), part, parts_.size(), firstLine, endLine});
}

void ReadTexts::Show(Canvas& canvas, const PlacedGlyphs& lines, std::size_t first,
                     std::size_t end) const {
    for (const Text& text : std::span(texts_).subspan(first, end - first)) {
        const std::string_view bytes = bytes_;
        PartedLines parted(
            canvas, bytes.substr(text.firstByte, text.endByte - text.firstByte),
            std::span(parts_).subspan(text.firstPart, text.endPart - text.firstPart));
        for (std::size_t i = text.firstLine; i < text.endLine; ++i) parted.Show(lines.At(i));
    }
    canvas.FinishGlyphs();
}

void ReadTexts::Clear() {
    texts_.clear();
    bytes_.clear();
    parts_.clear();
}

}  // namespace desk
