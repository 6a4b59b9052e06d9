#include <algorithm>
#include <array>
#include <string_view>

#include "app/document/Errors.h"
#include "app/document/FindFindings.h"
#include "app/document/Tokens.h"
#include "desk/expressions/ExpressionEngine.h"
#include "model/ColumnProperties.h"
#include "model/Results.h"
#include "support/Conversions.h"

namespace app {
namespace {

constexpr double kRounding = 1e-6;  // Inches.

bool IsToken(std::string_view token) {
    constexpr std::array kAtDrawing{gazetteer::kDotsToken, gazetteer::kNewLineToken,
                                    gazetteer::kLastCombineToken};
    return token == "$$" || !desk::TokenAt(token.substr(2)).empty() ||
           std::ranges::any_of(kAtDrawing,
                               [&](const char* known) { return token.starts_with(known); });
}

void AddUnknownToken(OpenDocument& open, const std::string& column, const std::string& token,
                     FindingList& list) {
    list.Add(findings::kUnknownToken, [&] {
        Finding finding{{},
                        "the expression of the column \"" + Shown(column) + "\" has \"" + token +
                            "\", which is no token and is printed as it stands.",
                        {},
                        column};
        finding.element = open.Gazetteer();
        return finding;
    });
}

// Texts of the first column can begin at the left of the frame.
void AddMarginFault(OpenDocument& open, LengthUnit unit, const std::string& column, double margin,
                    FindingList& list) {
    const auto frame = open.Gazetteer()->Geometry()->Bounds();
    const bool onSheet = frame->XMin() + margin >= -kRounding;
    list.Add(onSheet ? findings::kOutsideFrame : findings::kOutsideSheet, [&] {
        Finding finding{{},
                        "the texts of the column \"" + Shown(column) + "\" begin " +
                            LengthText(-margin, unit) + " to the left of the frame" +
                            (onSheet ? "." : ", off the sheet."),
                        {},
                        column};
        finding.element = open.Gazetteer();
        return finding;
    });
}

void AddOverlap(OpenDocument& open, LengthUnit unit, double spacing, FindingList& list) {
    list.Add(findings::kOverlap, [&] {
        Finding finding{{},
                        "column groups print over each other: the space between them "
                        "(RepeatSpacing) is " +
                            LengthText(spacing, unit) + '.'};
        finding.element = open.Gazetteer();
        return finding;
    });
}

}  // namespace

void AddSettingsFindings(OpenDocument& open, LengthUnit unit, FindingList& list) {
    const auto& settings = open.Manager().BoundSettings();
    if (settings.repeatColumns && settings.repeatSpacing < -kRounding)
        AddOverlap(open, unit, settings.repeatSpacing, list);
    bool isFirst = true;
    for (const auto& name : gazetteer::NamesOf(*settings.columnDisplayOrder)) {
        const auto set = gazetteer::SetUnder(*settings.columnsProperties, name);
        const auto column = gazetteer::ReadColumnProperties(*set, open.Host().Locale());
        const auto token = UnknownToken(column.expression, IsToken);
        if (!token.empty()) AddUnknownToken(open, name, token, list);
        if (isFirst && column.marginLeft < -kRounding)
            AddMarginFault(open, unit, name, column.marginLeft, list);
        isFirst = false;
    }
}

}  // namespace app
