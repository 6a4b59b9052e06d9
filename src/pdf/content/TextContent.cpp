#include "pdf/content/TextContent.h"

#include <algorithm>
#include <cmath>

#include "characters/TextProperties.h"
#include "pdf/file/Syntax.h"
#include "pdf/file/Violations.h"

namespace pdf {

using glyphs::Baseline;
using glyphs::Glyph;
using glyphs::GlyphLine;
using glyphs::Points;

namespace {

/// The unit of pen moves: a thousandth of the font size, divided by ten until it is within the
/// tolerance. Each division needs one more decimal.
struct SmallestMove {
    explicit SmallestMove(double thousandth) : points(thousandth) {
        for (; points > TextContent::kPlaceTolerance; points /= 10) ++decimals;
    }
    double points;
    int decimals = 0;
};

/// Returns the number of leading glyphs that represent one text together.
std::size_t ClusterSize(std::span<const Glyph> glyphs) {
    std::size_t size = 1;
    while (size < glyphs.size() && glyphs[size].bytes == 0) ++size;
    return size;
}

}  // namespace

double TextContent::Show(const FontUse& font, const GlyphLine& line, const Baseline& baseline) {
    texts_.Begin();
    Pen pen{font, baseline};
    pen.thousandth = font.points * font.across / 1000;
    const SmallestMove move(pen.thousandth);
    pen.move = move.points;
    pen.decimals = move.decimals;
    std::string_view text = line.text;
    for (auto glyphs = line.glyphs; !glyphs.empty();) {
        const std::size_t cluster = ClusterSize(glyphs);
        const std::string_view told = text.substr(0, glyphs[0].bytes);
        text.remove_prefix(std::size_t{glyphs[0].bytes} * glyphs[0].count);
        ShowCluster(pen, glyphs.first(cluster), told);
        glyphs = glyphs.subspan(cluster);
    }
    CloseString(pen);
    return pen.x;
}

/// Marks several glyphs of one text with ActualText. For readers that do not support it, the first
/// glyph has the whole text, and the others have a character that shows nothing. PDF/A asks for
/// ActualText also where a character's meaning is private; the character is all that is known of
/// it.
void TextContent::ShowCluster(Pen& pen, std::span<const Glyph> glyphs, std::string_view text) {
    const bool isPrivate = marker_ && characters::HasPrivateUse(text);
    if (glyphs.size() == 1 && !isPrivate) return ShowOne(pen, glyphs[0], text);
    constexpr char kNothing[] = "\u2060";  // WORD JOINER.
    const auto show = [&] {
        for (const Glyph& glyph : glyphs)
            ShowGlyph(pen, glyph, &glyph == glyphs.data() ? text : kNothing);
    };
    if (marker_ && marker_->TellWholeText()) return show();
    CloseString(pen);
    const bool isMarked = isMarked_ || markNext_;
    EndMark();
    std::string told;
    for (unsigned i = 0; i < glyphs[0].count; ++i) told += text;
    out_ +=
        isMarked ? marker_->NextMark(told) : "/Span<</ActualText" + TextString(told) + ">>BDC\n";
    show();
    CloseString(pen);
    out_ += "EMC\n";
    markNext_ = isMarked;
}

/// Readers turn round the letters of a line to the left, which they find from left to right; so
/// they do with the letters of one glyph, such as a lam with its alef. The letters behind the first
/// one therefore stand before it, on a glyph that shows nothing.
void TextContent::ShowOne(Pen& pen, const Glyph& glyph, std::string_view text) {
    const std::size_t first = characters::FirstToTheLeft(text);
    if (first == text.size() || pen.font.blank == 0) return ShowGlyph(pen, glyph, text);
    Glyph blank = glyph;
    blank.id = pen.font.blank;
    ShowGlyph(pen, blank, text.substr(first));
    ShowGlyph(pen, glyph, text.substr(0, first));
}

void TextContent::AddBlank(const FontUse& font) {
    if (font.blank == 0) return;
    if (markNext_) WriteMark();
    const auto place = font.face->Find(font.blank, " ");
    texts_.UseFont(*place.subset, font.points);
    out_ += '(';
    place.entry->code.AppendTo(out_);
    out_ += ")Tj\n";
}

void TextContent::ShowGlyph(Pen& pen, const Glyph& glyph, std::string_view text) {
    const CodeTable::Entry* entry = nullptr;
    if (pen.open && glyph.y == pen.y) entry = pen.subset->codes.Find(glyph.id, text);
    if (!entry) {
        // Glyph 0 stands for missing ones too; files for archives must not show it as a font's.
        const bool known = glyph.id != 0 && (glyph.id & PANGO_GLYPH_UNKNOWN_FLAG) == 0;
        const auto place = (known ? pen.font.face : pen.font.boxes)->Find(glyph.id, text);
        entry = place.entry;
        if (!pen.open || glyph.y != pen.y || place.subset != pen.subset) {
            CloseString(pen);
            pen.subset = place.subset;
            OpenString(pen, glyph);
        }
    }
    const double off = Points(glyph.x) - pen.x;
    if (std::abs(off) > kPlaceTolerance) Move(pen, off);
    AppendCode(pen, entry->code);
    pen.x += entry->width * pen.thousandth;
    if (glyph.count > 1) Repeat(pen, glyph, *entry);
}

/// Writes the repeated glyphs of a leader. Because widths are whole, a leader would end too early
/// or too late. It is divided into parts; in the middle of each, the pen is moved so that the last
/// glyph of the part is at its place. Most leaders need one move.
void TextContent::Repeat(Pen& pen, const Glyph& glyph, const CodeTable::Entry& entry) {
    const double step = Points(glyph.step);
    const double advance = entry.width * pen.thousandth;
    unsigned done = 1;
    const auto offAt = [&](unsigned index) {  // Distance of a glyph from its place if the pen is
                                              // not moved.
        return Points(glyph.x) + index * step - pen.x - (index - done) * advance;
    };
    const auto writeUpTo = [&](unsigned index) {
        for (unsigned i = done; i < index; ++i) AppendCode(pen, entry.code);
        pen.x += (index - done) * advance;
        done = index;
    };
    const double off = std::abs(offAt(glyph.count - 1));
    const auto parts =
        off > kPlaceTolerance ? static_cast<unsigned>(std::ceil(off / (2 * kLeaderTolerance))) : 0U;
    for (unsigned part = 0; part < parts; ++part) {
        writeUpTo(std::max(done, (2 * part + 1) * glyph.count / (2 * parts)));
        Move(pen, offAt((part + 1) * glyph.count / parts - 1));
    }
    writeUpTo(glyph.count);
}

/// Long strings are divided, as PDF/A limits them.
void TextContent::AppendCode(Pen& pen, const Code& code) {
    if (out_.size() - pen.part > kLongestString - 2 * sizeof(code.bytes)) {
        out_ += ")(";
        pen.moved = true;
        pen.part = out_.size();
    }
    code.AppendTo(out_);
}

void TextContent::OpenString(Pen& pen, const Glyph& glyph) {
    texts_.UseFont(*pen.subset, pen.font.points);
    pen.x = Points(glyph.x);
    pen.y = glyph.y;
    // The glyphs that follow correct the rounding.
    pen.x += texts_.MoveTo(pen.font, pen.baseline, pen.x, Points(glyph.y));
    if (markNext_) WriteMark();
    pen.start = out_.size();
    pen.moved = false;
    pen.open = true;
    out_ += " (";
    pen.part = out_.size();
}

// A string without moves needs no array; otherwise the blank before it becomes the bracket.
void TextContent::WriteMark() {
    out_ += '\n';
    out_ += marker_->NextMark({});
    markNext_ = false;
    isMarked_ = true;
}

void TextContent::EndMark() {
    if (isMarked_) out_ += "EMC\n";
    isMarked_ = false;
    markNext_ = false;
}

void TextContent::CloseString(Pen& pen) {
    if (!pen.open) return;
    pen.open = false;
    if (pen.moved) out_[pen.start] = '[';
    out_ += pen.moved ? ")]TJ\n" : ")Tj\n";
}

void TextContent::Move(Pen& pen, double distance) {
    const auto steps = static_cast<std::int64_t>(std::llround(distance / pen.move));
    out_ += ')';
    AppendScaled(out_, -steps, pen.decimals);
    out_ += '(';
    pen.x += static_cast<double>(steps) * pen.move;
    pen.moved = true;
    pen.part = out_.size();
}

}  // namespace pdf
