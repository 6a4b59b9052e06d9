#pragma once

#include <optional>
#include <string>

#include "layout/TextMeasure.h"

/// Dot leaders: as many dots as the width takes, found with a few measurements. A text grows by one
/// dot's width with each dot, so the count is computed from two widths and then verified.
namespace gazetteer {

/// The text with every "$$DOTS" replaced by the same number of dots: the most with which it is no
/// wider than the column. textWidth is its width without dots. Nothing if dots have no width.
std::optional<std::string> FillLeaders(TextMeasure& measure, const std::string& textWithTokens,
                                       double textWidth, double width);

/// What FillLeaders gives for a text of one line with its only token at its end, in one question at
/// most, if the host tells widths that allow that. Nothing where it does not, and for
/// a text that is not narrower than the column.
std::optional<std::string> LineWithLeader(TextMeasure& measure, const std::string& text,
                                          double width);

/// The dots that fill the last line of a wrapped text; none where not even one fits. Nothing if
/// dots have no width. Of a text with markup no line can be measured alone.
std::optional<std::string> LeaderAfter(TextMeasure& measure, const std::string& text, double width,
                                       bool hasMarkup);

}  // namespace gazetteer
