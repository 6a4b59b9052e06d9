#include "desk/drawing/ReadTexts.h"

#include <algorithm>

#include "characters/WordParts.h"

namespace desk {
namespace {

/// Shows the lines of one text, part by part.
class PartedLines {
public:
    PartedLines(Canvas& canvas, std::string_view text, std::span<const TextPart> parts)
        : canvas_(canvas), text_(text), parts_(parts) {}

    /// The text before is that of the last line that was shown on the canvas.
    void Show(const PlacedGlyphs::Line& line, std::string_view& before) {
        if (SkipLineEnds() || at_ == 0) PartWords(before);
        const std::size_t size = line.glyphs.text.size();
        before = text_.substr(at_, size);
        if (before == line.glyphs.text)
            ShowInOrder(line);
        else
            ShowOutOfOrder(line);
        at_ += size;
    }

private:
    bool SkipLineEnds() {
        const std::size_t start = at_;
        while (at_ < text_.size() && (text_[at_] == '\r' || text_[at_] == '\n')) ++at_;
        return at_ > start;
    }
    void PartWords(std::string_view before) {
        if (characters::LineEndPartsWords(before, text_.substr(at_))) canvas_.PartWords();
    }

    void ShowInOrder(const PlacedGlyphs::Line& line) {
        ShowParts(line, [this](const Glyph& glyph, std::size_t byte) -> const TextPart& {
            return PartAt(at_ + byte + std::size_t{glyph.bytes} * glyph.count - 1);
        });
    }

    /// In a line to the left, or of both directions, only a leader is told from the rest.
    void ShowOutOfOrder(const PlacedGlyphs::Line& line) {
        ShowParts(
            line,
            [this](const Glyph& glyph, std::size_t) -> const TextPart& {
                const bool leads = glyph.count > 1;
                const auto found = std::ranges::find_if(parts_, [&](const TextPart& part) {
                    return part.end > at_ && (part.meaning.role == pdf::Role::Decoration) == leads;
                });
                return found == parts_.end() ? parts_.back() : *found;
            },
            line.glyphs.text.size());
    }

    /// Shows the glyphs of each part together. Where the glyphs stand out of order, the parts of so
    /// many bytes of text are told beside them.
    template <class PartOf>
    void ShowParts(const PlacedGlyphs::Line& line, const PartOf& partOf, std::size_t told = 0) {
        const std::string_view shown = line.glyphs.text;
        auto glyphs = line.glyphs.glyphs;
        for (std::size_t byte = 0; !glyphs.empty();) {
            const TextPart& part = partOf(glyphs[0], byte);
            const std::size_t start = byte;
            std::size_t count = 0;
            do {
                byte += std::size_t{glyphs[count].bytes} * glyphs[count].count;
                ++count;
            } while (count < glyphs.size() &&
                     (glyphs[count].bytes == 0 || &partOf(glyphs[count], byte) == &part));
            pdf::Meaning meaning = part.meaning;
            if (told > 0) meaning.actualText = TextOf(part, told);
            canvas_.SetMeaning(meaning);
            canvas_.Show(line.font, {glyphs.first(count), shown.substr(start, byte - start)},
                         line.baseline);
            glyphs = glyphs.subspan(count);
        }
    }

    /// Returns what a part has of the next bytes.
    std::string_view TextOf(const TextPart& part, std::size_t size) const {
        const std::size_t start = std::max(&part == parts_.data() ? 0 : (&part - 1)->end, at_);
        const std::size_t end = std::min(part.end, at_ + size);
        return start < end ? text_.substr(start, end - start) : std::string_view();
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
    std::string_view before;
    for (const Text& text : std::span(texts_).subspan(first, end - first)) {
        const std::string_view bytes = bytes_;
        PartedLines parted(
            canvas, bytes.substr(text.firstByte, text.endByte - text.firstByte),
            std::span(parts_).subspan(text.firstPart, text.endPart - text.firstPart));
        for (std::size_t i = text.firstLine; i < text.endLine; ++i)
            parted.Show(lines.At(i), before);
    }
    canvas.FinishGlyphs();
}

void ReadTexts::Clear() {
    texts_.clear();
    bytes_.clear();
    parts_.clear();
}

}  // namespace desk
