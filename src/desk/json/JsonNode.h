#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <simdjson.h>
#include <string>
#include <string_view>

namespace desk {

/// The file that is read, as failure messages name it.
struct JsonSource {
    std::string path;
    std::string subject;  ///< Start of a message, such as "In the map book file "a.json"".
    std::string at;       ///< Text between the subject and a place, such as ", at ".
};

/// A JSON value and its path in the document, so that failures can name the place. Nodes refer to
/// their parent node: a node must not outlive the node it was obtained from, nor the JsonSource.
class JsonNode {
public:
    /// The root of a document.
    JsonNode(simdjson::dom::element value, const JsonSource& source)
        : value_(value), source_(&source) {}

    simdjson::dom::element_type Type() const { return value_.type(); }

    /// Returns the value of a key. Throws if the key is missing.
    JsonNode Member(std::string_view key) const;
    std::optional<JsonNode> Optional(std::string_view key) const;
    /// Returns the value of the only key of an object. Throws unless there is exactly one key.
    JsonNode OnlyMember() const;
    std::string_view Key() const { return key_; }
    /// Throws if more than so many nodes with this node's key stand inside one another on the path
    /// from the root to this one. The things are what the key holds, such as "groups".
    void CheckNesting(int deepest, const char* things) const;

    std::string_view Text() const;
    /// Returns a text that is not empty.
    std::string_view Name() const;
    bool Flag() const;
    /// Returns a whole number; throws if it is outside the bounds.
    std::int32_t Whole(std::int32_t least = std::numeric_limits<std::int32_t>::min(),
                       std::int32_t greatest = std::numeric_limits<std::int32_t>::max()) const;
    /// Returns any number; also accepts the texts "inf", "-inf" and "nan".
    double Number() const;
    /// Returns a finite number within the bounds; throws for any other. The thing names it in the
    /// message, such as "a length in inches".
    double NumberIn(double least, double greatest, const char* thing) const;

    std::size_t Count() const { return Array().size(); }
    template <class Visitor>
    void Each(Visitor&& visitor) const {
        std::size_t index = 0;
        for (const auto item : Array()) visitor(JsonNode(item, this, {}, index++));
    }

    /// Throws host::Failure that names the file, the place and the fault. The fault is a clause
    /// such as "a text is expected".
    [[noreturn]] void Fail(const std::string& fault) const;

private:
    JsonNode(simdjson::dom::element value, const JsonNode* parent, std::string_view key,
             std::size_t index)
        : value_(value), source_(parent->source_), parent_(parent), key_(key), index_(index) {}

    simdjson::dom::array Array() const;
    simdjson::dom::object Object() const;
    std::string Place() const;

    simdjson::dom::element value_;
    const JsonSource* source_;
    const JsonNode* parent_ = nullptr;
    std::string_view key_;  ///< Empty for array items and the root.
    std::size_t index_ = 0;
};

}  // namespace desk
