#pragma once

#include <optional>
#include <string>

#include "layout/LineBreaker.h"

/// Dot leaders: as many dots as the width takes, found with a few measurements. A text grows by one
/// dot's width with each dot, so the count is computed from two widths and then verified.
namespace gazetteer {

/// The text with every "$$DOTS" replaced by the same number of dots: the most with which it is no
/// wider than the column. textWidth is its width without dots. Nothing if dots have no width.
std::optional<std::string> FillLeaders(const MeasureWidth& measure,
                                       const std::string& textWithTokens, double textWidth,
                                       double width);

/// The dots that fill the last line of a wrapped text; none where not even one fits. Nothing if
/// dots have no width.
std::optional<std::string> LeaderAfter(const MeasureWidth& measure, const std::string& text,
                                       double width);

}  // namespace gazetteer
