#pragma once

#include <string>

#include "host/Host.h"

namespace app {

/// The text of a running head: "$$FIRST" and "$$LAST" stand for the first and the last listing of
/// the page.
inline constexpr char kUsualHead[] = "$$FIRST \u2013 $$LAST";

/// Returns a token that a running head does not know, such as "$$FRIST"; empty if there is none.
std::string UnknownHeadToken(const std::string& text);

/// Returns the text of a running head, cut to the width (inches): each listing to its share, with
/// an ellipsis. If both listings are the same, or one is empty, one stands in place of the two and
/// of what is between them.
std::string HeadText(host::IHost& host, host::IHostTextSymbol& symbol, std::string text,
                     const std::string& first, const std::string& last, double width);

}  // namespace app
