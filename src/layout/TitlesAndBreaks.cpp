#include "layout/TitlesAndBreaks.h"

#include <algorithm>

#include "layout/RowElements.h"
#include "support/ErrorHandling.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

constexpr char kBlank[] = " ";

// The first character of a cell in a break column, in the case in which it stands there; empty for
// an empty cell.
std::string BreakLetter(LayoutPass& pass, LayoutColumn& column, const std::string& rowKey) {
    auto& locale = pass.Host().Locale();
    const std::string& text = column.Cell(rowKey, locale);
    if (text.empty()) return {};
    if (static_cast<unsigned char>(text[0]) < 0x80 &&
        (text.size() == 1 || static_cast<unsigned char>(text[1]) < 0x80))
        return text.substr(0, 1);
    return text.substr(0, locale.Characters(text).front());
}

bool IsNumeric(LayoutPass& pass, const std::string& letter) {
    if (letter.size() == 1) return letter[0] >= '0' && letter[0] <= '9';
    return !letter.empty() && pass.Host().Locale().ParseNumber(letter).has_value();
}

// What the column shows over a text without a letter, which begins with a digit or a sign. In a
// field of letters a sign stands by itself, such as "#" for digits, and is its own heading.
std::string HeadingWithoutLetter(LayoutPass& pass, LayoutColumn& column,
                                 const std::string& rowKey) {
    const std::string& digits = pass.GetSettings().typesetting.digitsHeading;
    if (!digits.empty()) return digits;
    const std::string letter = BreakLetter(pass, column, rowKey);
    const bool isAll = letter == column.Cell(rowKey, pass.Host().Locale());
    return isAll && !IsNumeric(pass, letter) ? letter : std::string();
}

// What the heading of a break column shows; empty: none.
std::string HeadingOf(LayoutPass& pass, LayoutColumn& column, const std::string& rowKey) {
    if (!column.letters) {
        const std::string letter = BreakLetter(pass, column, rowKey);
        return IsNumeric(pass, letter) ? std::string() : letter;
    }
    const std::string& letter = column.IndexLetter(rowKey, pass.Host().Locale());
    return letter.empty() ? HeadingWithoutLetter(pass, column, rowKey) : letter;
}

bool BeginsLetter(LayoutPass& pass, LayoutColumn& column, const std::string& thisRow,
                  const std::string& previousRow) {
    if (column.letters) {
        const std::string letter = HeadingOf(pass, column, thisRow);
        return !letter.empty() && letter != HeadingOf(pass, column, previousRow);
    }
    const std::string letter = BreakLetter(pass, column, thisRow);
    const std::string previous = BreakLetter(pass, column, previousRow);
    if (letter == previous || IsNumeric(pass, letter)) return false;
    return pass.Host().Locale().CompareText(letter, previous) != 0;
}

}  // namespace

std::string TitleText(const LayoutColumn& column) {
    const auto& properties = column.properties;
    return properties.showTitle && !properties.title.empty() ? properties.title : kBlank;
}

std::string HeadingText(LayoutPass& pass, LayoutColumn& column, const std::string& rowKey,
                        HeadingKind kind) {
    if (!column.properties.breakColumn) return kBlank;
    std::string heading = HeadingOf(pass, column, rowKey);
    if (heading.empty()) return kBlank;
    if (kind == HeadingKind::Letter) return heading;
    return ReplaceAll(pass.GetSettings().typesetting.continued, kContinuedLetter, heading);
}

host::Ref<host::IHostElement> MakeTitleGroup(LayoutPass& pass,
                                             const host::IHostPoint& position) try {
    return MakeGroup(pass, position, false, RowKind::Title, TitleText);
} catch (...) {
    PassOn("MakeTitleGroup", kManagerLabel);
}

host::Ref<host::IHostElement> MakeBreakGroup(LayoutPass& pass, const std::string& rowKey,
                                             HeadingKind kind, const host::IHostPoint& position,
                                             bool alternate) try {
    return MakeGroup(pass, position, alternate, RowKind::Break,
                     [&](LayoutColumn& column) { return HeadingText(pass, column, rowKey, kind); });
} catch (...) {
    PassOn("MakeBreakGroup", kManagerLabel);
}

bool RowHasLetter(LayoutPass& pass, const std::string& rowKey) {
    return std::ranges::any_of(pass.Columns(), [&](LayoutColumn& column) {
        return column.properties.breakColumn && column.properties.breakHeading &&
               !HeadingOf(pass, column, rowKey).empty();
    });
}

bool RowNeedsBreak(LayoutPass& pass, const std::string& thisRow,
                   const std::string& previousRow) try {
    return std::ranges::any_of(pass.Columns(), [&](LayoutColumn& column) {
        return column.properties.breakColumn && BeginsLetter(pass, column, thisRow, previousRow);
    });
} catch (...) {
    PassOn("RowNeedsBreak", kManagerLabel);
}

bool NeedsTopMostBreak(LayoutPass& pass) try {
    if (!pass.GetSettings().addStartingBreak) return false;
    for (LayoutColumn& column : pass.Columns()) {
        if (!column.properties.breakColumn) continue;
        const auto rows = NamesOf(*column.listings, 1);
        if (rows.empty()) continue;
        if (column.letters ? !HeadingOf(pass, column, rows.front()).empty()
                           : !IsNumeric(pass, BreakLetter(pass, column, rows.front())))
            return true;
    }
    return false;
} catch (...) {
    PassOn("NeedsTopMostBreak", kManagerLabel);
}

}  // namespace gazetteer
