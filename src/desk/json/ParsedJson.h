#pragma once

#include <simdjson.h>
#include <string>
#include <string_view>

namespace desk {

/// The parsed values of a JSON text. Copies the values, so the text may be freed. Skips a byte
/// order mark.
class ParsedJson {
public:
    explicit ParsedJson(const std::string& text);

    /// SUCCESS, or the reason why the text is not JSON.
    simdjson::error_code Error() const { return error_; }
    /// Valid only without an error.
    simdjson::dom::element Root() const { return root_; }

private:
    simdjson::dom::document document_;
    simdjson::dom::element root_;
    simdjson::error_code error_;
};

/// Returns where a text stops being valid JSON, such as "line 2, column 7". Both count from 1; the
/// column counts bytes and is the end of the first invalid token. Returns an empty text for valid
/// JSON.
std::string PlaceOfJsonFault(std::string_view text);

}  // namespace desk
