#include "desk/drawing/ReadTexts.h"

#include <algorithm>

#include "characters/TextProperties.h"

namespace desk {
namespace {

/// Shows the lines of one text, part by part.
class PartedText {
public:
    PartedText(Canvas& canvas, std::string_view text, std::span<const TextPart> parts)
        : canvas_(canvas), text_(text), parts_(parts) {}

    /// Shows collected lines from first to end, exclusive. A line of the text may be several of
    /// these, one for each font. The text before is that of the last line on the canvas.
    void Show(const PlacedGlyphs& lines, std::size_t first, std::size_t end,
              std::string_view& before) {
        while (first < end) {
            NextLine(before);
            const std::size_t last = EndOfLine(lines, first, end);
            for (; first < last; ++first) ShowParts(lines.At(first));
            before = line_;
        }
    }

private:
    void NextLine(std::string_view before) {
        const bool begins = at_ == 0 || text_[at_ - 1] != '\n';
        while (at_ < text_.size() && (text_[at_] == '\r' || text_[at_] == '\n')) ++at_;
        const std::size_t end = std::min(text_.find_first_of("\r\n", at_), text_.size());
        line_ = text_.substr(at_, end - at_);
        if (begins && characters::LineEndPartsWords(before, line_)) canvas_.PartWords();
    }

    /// Finds the end of the collected lines that make up the line, at least one, and whether their
    /// glyphs stand in the order of the text.
    std::size_t EndOfLine(const PlacedGlyphs& lines, std::size_t first, std::size_t end) {
        isInOrder_ = true;
        std::size_t byte = 0;
        std::size_t last = first;
        for (; last < end && (last == first || byte < line_.size()); ++last) {
            const std::string_view shown = lines.At(last).glyphs.text;
            if (line_.substr(byte, shown.size()) != shown) isInOrder_ = false;
            byte += shown.size();
        }
        lineStart_ = at_;
        return last;
    }

    void ShowParts(const PlacedGlyphs::Line& line) {
        auto glyphs = line.glyphs.glyphs;
        std::string_view shown = line.glyphs.text;
        while (!glyphs.empty()) {
            const TextPart& part = PartOf(glyphs[0], at_);
            std::size_t bytes = 0;
            std::size_t count = 0;
            do {
                bytes += std::size_t{glyphs[count].bytes} * glyphs[count].count;
                ++count;
            } while (count < glyphs.size() &&
                     (glyphs[count].bytes == 0 || &PartOf(glyphs[count], at_ + bytes) == &part));
            canvas_.SetMeaning(MeaningOf(part));
            canvas_.Show(line.font, {glyphs.first(count), shown.substr(0, bytes)}, line.baseline);
            glyphs = glyphs.subspan(count);
            shown.remove_prefix(bytes);
            at_ += bytes;
        }
    }

    /// Returns the part that has the last byte of a glyph. Out of order, as in a line to the left,
    /// only a leader is told from the rest.
    const TextPart& PartOf(const Glyph& glyph, std::size_t place) const {
        const std::size_t last = place + std::size_t{glyph.bytes} * glyph.count - 1;
        const bool leads = glyph.count > 1;
        const auto found = std::ranges::find_if(parts_, [&](const TextPart& part) {
            if (isInOrder_) return part.end > last;
            return part.end > lineStart_ && (part.meaning.role == pdf::Role::Decoration) == leads;
        });
        return found == parts_.end() ? parts_.back() : *found;
    }

    /// Out of order, the meaning tells what the part has of the line.
    pdf::Meaning MeaningOf(const TextPart& part) const {
        pdf::Meaning meaning = part.meaning;
        if (isInOrder_) return meaning;
        const std::size_t start =
            std::max(&part == parts_.data() ? 0 : (&part - 1)->end, lineStart_);
        const std::size_t end = std::min(part.end, lineStart_ + line_.size());
        if (start < end) meaning.actualText = text_.substr(start, end - start);
        return meaning;
    }

    Canvas& canvas_;
    std::string_view text_;
    std::span<const TextPart> parts_;
    std::size_t at_ = 0;  ///< Bytes of the text that are shown.
    std::string_view line_;
    std::size_t lineStart_ = 0;
    bool isInOrder_ = true;
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
        PartedText parted(canvas, bytes.substr(text.firstByte, text.endByte - text.firstByte),
                          std::span(parts_).subspan(text.firstPart, text.endPart - text.firstPart));
        parted.Show(lines, text.firstLine, text.endLine, before);
    }
    canvas.FinishGlyphs();
}

void ReadTexts::Clear() {
    texts_.clear();
    bytes_.clear();
    parts_.clear();
}

}  // namespace desk
