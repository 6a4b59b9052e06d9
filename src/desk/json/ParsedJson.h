#pragma once

#include <simdjson.h>
#include <string>
#include <string_view>

namespace desk {

/// The values of a JSON text, which is not needed any more. A byte order mark before it is passed
/// over.
class ParsedJson {
public:
    explicit ParsedJson(const std::string& text);

    /// SUCCESS, or why the text is not JSON.
    simdjson::error_code Error() const { return error_; }
    /// Valid without an error.
    simdjson::dom::element Root() const { return root_; }

private:
    simdjson::dom::document document_;
    simdjson::dom::element root_;
    simdjson::error_code error_;
};

/// Where a text stops being JSON, as "line 2, column 7", both from 1, the column in bytes: the end
/// of the first piece that does not belong there. Empty for a text of which the form is right.
std::string PlaceOfJsonFault(std::string_view text);

}  // namespace desk
