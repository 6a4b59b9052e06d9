#include "desk/json/ParsedJson.h"

#include <string_view>

namespace desk {

// The parser and its tables go at the end: of a million listings, 45 MB.
ParsedJson::ParsedJson(const std::string& text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    const std::size_t start = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    const bool padded = text.capacity() - text.size() >= simdjson::SIMDJSON_PADDING;
    simdjson::dom::parser parser;
    error_ =
        parser.parse_into_document(document_, text.data() + start, text.size() - start, !padded)
            .get(root_);
}

}  // namespace desk
