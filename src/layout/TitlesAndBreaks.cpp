#include "layout/TitlesAndBreaks.h"

#include "layout/RowElements.h"
#include "support/ErrorHandling.h"

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

}  // namespace

host::Ref<host::IHostElement> MakeTitleGroup(LayoutPass& pass,
                                             const host::IHostPoint& position) try {
    return MakeGroup(pass, position, false, RowKind::Title,
                     [](const LayoutColumn& column) -> std::string {
                         const auto& properties = column.properties;
                         if (!properties.showTitle || properties.title.empty()) return kBlank;
                         return properties.title;
                     });
} catch (...) {
    PassOn("MakeTitleGroup", kManagerLabel);
}

host::Ref<host::IHostElement> MakeBreakGroup(LayoutPass& pass, const std::string& rowKey,
                                             const host::IHostPoint& position, bool alternate) try {
    return MakeGroup(pass, position, alternate, RowKind::Break,
                     [&](LayoutColumn& column) -> std::string {
                         if (!column.properties.breakColumn) return kBlank;
                         const std::string letter = BreakLetter(pass, column, rowKey);
                         return letter.empty() || IsNumeric(pass, letter) ? kBlank : letter;
                     });
} catch (...) {
    PassOn("MakeBreakGroup", kManagerLabel);
}

bool RowNeedsBreak(LayoutPass& pass, const std::string& thisRow,
                   const std::string& previousRow) try {
    for (LayoutColumn& column : pass.Columns()) {
        if (!column.properties.breakColumn) continue;
        const std::string letter = BreakLetter(pass, column, thisRow);
        const std::string previous = BreakLetter(pass, column, previousRow);
        if (letter == previous || IsNumeric(pass, letter)) continue;
        if (pass.Host().Locale().CompareText(letter, previous) != 0) return true;
    }
    return false;
} catch (...) {
    PassOn("RowNeedsBreak", kManagerLabel);
}

bool NeedsTopMostBreak(LayoutPass& pass) try {
    if (!pass.GetSettings().addStartingBreak) return false;
    for (LayoutColumn& column : pass.Columns()) {
        if (!column.properties.breakColumn) continue;
        const auto rows = NamesOf(*column.listings, 1);
        if (!rows.empty() && !IsNumeric(pass, BreakLetter(pass, column, rows.front()))) return true;
    }
    return false;
} catch (...) {
    PassOn("NeedsTopMostBreak", kManagerLabel);
}

}  // namespace gazetteer
