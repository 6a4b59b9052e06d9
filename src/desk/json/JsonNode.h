#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <simdjson.h>
#include <string>
#include <string_view>

namespace desk {

/// What sentences say of the file that is read.
struct JsonSource {
    std::string path;
    std::string subject;  ///< The sentence's start, such as "In the map book file "a.json"".
    std::string at;       ///< What leads on to a place in the file, such as ", at ".
};

/// A value of a JSON document together with its place in it, so that whatever is wrong with it can
/// be named. The place is a chain of nodes on the stack: a node must not outlive the one that it
/// came from.
class JsonNode {
public:
    /// The whole of a document.
    JsonNode(simdjson::dom::element value, const JsonSource& source)
        : value_(value), source_(&source) {}

    simdjson::dom::element_type Type() const { return value_.type(); }

    /// The value under a key. Fails where there is none.
    JsonNode Member(std::string_view key) const;
    std::optional<JsonNode> Optional(std::string_view key) const;
    /// The value under the only key that an object has. Fails for other objects.
    JsonNode OnlyMember() const;
    std::string_view Key() const { return key_; }
    /// How many nodes of this node's key there are from the top of the document to it, itself too.
    int Nesting() const;

    std::string_view Text() const;
    /// A text that is not empty.
    std::string_view Name() const;
    bool Flag() const;
    /// A whole number within the bounds.
    std::int32_t Whole(std::int32_t least = std::numeric_limits<std::int32_t>::min(),
                       std::int32_t greatest = std::numeric_limits<std::int32_t>::max()) const;
    /// Any number, or one of the texts "inf", "-inf" and "nan".
    double Number() const;

    /// The number of items of an array.
    std::size_t Count() const { return Array().size(); }
    /// Hands each item of an array to the visitor.
    template <class Visitor>
    void Each(Visitor&& visitor) const {
        std::size_t index = 0;
        for (const auto item : Array()) visitor(JsonNode(item, this, {}, index++));
    }

    /// Raises a failure that names the file, this place in it and the fault, a clause such as
    /// "a text is expected".
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
    std::string_view key_;  ///< Empty for an item of an array, and for the whole.
    std::size_t index_ = 0;
};

}  // namespace desk
