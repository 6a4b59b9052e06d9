#include "layout/CellSetter.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "layout/DotLeader.h"
#include "model/Results.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

constexpr double kRounding = 1e-6;  // Inches; what sums of widths may be off.
// More dots than a sheet of 200 inches takes in half-point type.
constexpr double kMostDots = 200'000;

// Where a text of this width begins, from the start of the cell.
double PlaceOf(Anchor anchor, double width) {
    if (anchor == Anchor::Start) return 0;
    return anchor == Anchor::Middle ? width / 2 : width;
}

host::IHostLineBreaks* LineBreaksOf(LayoutPass& pass) {
    if (!pass.GetSettings().typesetting.breakOpportunities) return nullptr;
    return dynamic_cast<host::IHostLineBreaks*>(&pass.Host().Locale());
}

}  // namespace

CellSetter::CellSetter(LayoutPass& pass, const host::Ref<host::IHostTextSymbol>& symbol)
    : pass_(pass),
      typesetting_(pass.GetSettings().typesetting),
      symbol_(symbol),
      measure_(pass.Display(), symbol),
      breaker_(pass.Host().Locale(), LineBreaksOf(pass), measure_) {}

SetText CellSetter::Set(const std::string& text, const SettingRules& rules, bool withDots) {
    std::string lines = text;
    if (text.find("$$") != std::string::npos) {
        lines = ReplaceAll(std::move(lines), kLastCombineToken, "");
        lines = ReplaceAll(std::move(lines), kNewLineToken, "\n");
    }
    if (pass_.Text().HasMarkup(lines)) return Plain(std::move(lines), rules);
    if (lines.find('\r') != std::string::npos) lines = ReplaceAll(std::move(lines), "\r", "");
    SetText set;
    for (std::size_t start = 0; start <= lines.size();) {
        const auto end = std::min(lines.find('\n', start), lines.size());
        SetParagraph(std::string_view(lines).substr(start, end - start), rules, withDots, set);
        start = end + 1;
    }
    return set;
}

// By the plain rules, which know markup; one piece.
SetText CellSetter::Plain(std::string text, const SettingRules& rules) {
    SetText set;
    std::string lines = pass_.Text().SplitText(text, rules.width, symbol_);
    set.toreWord = pass_.Text().BrokeWord();
    const double height = measure_.Size(lines).height;
    set.lines.push_back(
        {{{std::move(lines), rules.anchor, PlaceOf(rules.anchor, rules.width)}}, height});
    return set;
}

// The last leader of a paragraph is filled; of any other nothing is left. A text keeps its
// alignment where nothing follows it to the end of the cell.
void CellSetter::SetParagraph(std::string_view paragraph, const SettingRules& rules, bool withDots,
                              SetText& set) {
    const auto leader = paragraph.rfind(kDotsToken);
    set.endsInLeader = false;
    if (leader == std::string_view::npos) return AddLines(std::string(paragraph), rules, set);
    const std::string head = ReplaceAll(std::string(paragraph.substr(0, leader)), kDotsToken, "");
    const auto tail = paragraph.substr(leader + std::size(kDotsToken) - 1);
    if (tail.empty() && typesetting_.leaderStyle == kNoLeader)
        AddLines(WithoutOuterBlanks(head), rules, set);
    else
        SetLeader(head, WithoutOuterBlanks(std::string(tail)), rules, withDots, set);
    set.endsInLeader = tail.empty();
}

void CellSetter::AddLines(const std::string& text, const SettingRules& rules, SetText& set) {
    const double indent = rules.anchor == Anchor::Start ? rules.indent : 0;
    auto size = measure_.Size(text);
    const bool fits = size.width <= rules.width;
    const auto lines =
        fits ? std::vector{text} : breaker_.Lines(text, rules.width, rules.width - indent);
    if (!fits && breaker_.ToreWord()) set.toreWord = true;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!fits) size = measure_.Size(lines[i]);
        // A character that has no room beside the indent keeps to the width all the same.
        const double least = std::max(0.0, std::min(indent, rules.width - size.width));
        const double place = PlaceOf(rules.anchor, rules.width) + (i > 0 ? least : 0);
        set.lines.push_back({{{lines[i], rules.anchor, place}}, size.height});
    }
}

// Text, dots, and what follows them at the end of the same line, or of the next.
void CellSetter::SetLeader(const std::string& head, const std::string& tail,
                           const SettingRules& rules, bool withDots, SetText& set) {
    SettingRules atStart = rules;
    atStart.anchor = Anchor::Start;
    AddLines(WithoutOuterBlanks(head), atStart, set);
    const double tailWidth = tail.empty() ? 0 : measure_.Width(tail);
    const LinePiece& last = set.lines.back().pieces.back();
    double from = last.place + (last.text.empty() ? 0 : measure_.Width(last.text) + Gap());
    if (!tail.empty() && from + tailWidth > rules.width) {
        if (rules.indent + tailWidth > rules.width) return AddLines(tail, atStart, set);
        set.lines.push_back({{}, measure_.Size(tail).height});
        from = rules.indent;
    }
    SetLine& line = set.lines.back();
    if (withDots && typesetting_.leaderStyle == kPlainLeader)
        return FillLine(line, tail, rules.width);
    if (withDots) AddDots(line, from, tailWidth, rules.width);
    if (!tail.empty()) line.pieces.push_back({tail, Anchor::End, rules.width});
}

// In one piece, as the plain rules have it; from right to left in several, since in one the dots
// behind Latin letters would stand at their right.
void CellSetter::FillLine(SetLine& line, const std::string& tail, double width) {
    if (line.pieces.empty()) line.pieces.push_back({});
    const auto [head, anchor, start] = line.pieces.back();
    const auto with = [&](std::size_t dots) { return head + std::string(dots, '.') + tail; };
    const auto dots = DotsThatFit([&](std::size_t count) { return measure_.Width(with(count)); },
                                  measure_.DotWidth(), width - start)
                          .value_or(0);
    if (!pass_.IsMirrored()) {
        line.pieces.back().text = with(dots);
        return;
    }
    std::string filled = head;
    for (const std::string& piece : {std::string(dots, '.'), tail}) {
        const double place = start + (filled.empty() ? 0 : measure_.Width(filled));
        if (!piece.empty()) line.pieces.push_back({piece, anchor, place});
        filled += piece;
    }
}

// The right edge of each dot is a whole number of pitches from the end of the cell.
void CellSetter::AddDots(SetLine& line, double from, double tailWidth, double width) {
    if (typesetting_.leaderStyle == kNoLeader || !(Pitch() > 0)) return;
    const double behind =
        tailWidth > 0 ? std::ceil((tailWidth + Gap()) / Pitch() - kRounding) * Pitch() : 0;
    const double blanks = Pitch() - DotWidth();
    const double count = std::floor((width - behind - from + blanks) / Pitch() + kRounding);
    if (count < std::max(1, typesetting_.leaderLeast) || count > kMostDots) return;
    line.pieces.push_back({Dots(static_cast<std::size_t>(count)), Anchor::End, width - behind});
}

double CellSetter::Gap() {
    if (!gap_) gap_ = measure_.Width("x x") - measure_.Width("xx");
    return *gap_;
}

double CellSetter::Pitch() {
    if (!pitch_) pitch_ = measure_.Width(Dots(3)) - measure_.Width(Dots(2));
    return *pitch_;
}

double CellSetter::DotWidth() {
    if (!dotWidth_) dotWidth_ = measure_.Width(typesetting_.leaderDot);
    return *dotWidth_;
}

std::string CellSetter::Dots(std::size_t count) const {
    const std::string blanks(static_cast<std::size_t>(typesetting_.leaderBlanks), ' ');
    std::string dots;
    dots.reserve(count * (typesetting_.leaderDot.size() + blanks.size()));
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0) dots += blanks;
        dots += typesetting_.leaderDot;
    }
    return dots;
}

}  // namespace gazetteer
