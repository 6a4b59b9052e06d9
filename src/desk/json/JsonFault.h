#pragma once

#include <string>
#include <string_view>

namespace desk {

/// Where a text stops being JSON, as "line 2, column 7", both from 1, the column in bytes: the end
/// of the first piece that does not belong there. Empty for a text of which the form is right.
std::string PlaceOfJsonFault(std::string_view text);

}  // namespace desk
