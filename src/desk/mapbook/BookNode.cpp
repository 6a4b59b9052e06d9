#include "desk/mapbook/BookNode.h"

#include <limits>

#include "host/Failure.h"

namespace desk {

bool BookNode::Has(const std::string& key) const {
    return Object().contains(key);
}

BookNode BookNode::Member(const std::string& key) const {
    const auto found = Object().find(key);
    if (found == value_->end()) Fail("\"" + key + "\" is missing");
    return {*found, file_, place_.empty() ? key : place_ + "." + key};
}

std::vector<BookNode> BookNode::Items() const {
    if (!value_->is_array()) Fail("a list is expected");
    std::vector<BookNode> items;
    for (std::size_t i = 0; i < value_->size(); ++i)
        items.push_back({(*value_)[i], file_, place_ + "[" + std::to_string(i) + "]"});
    return items;
}

std::string BookNode::Text() const {
    if (!value_->is_string()) Fail("a text is expected");
    return value_->get<std::string>();
}

std::string BookNode::Name() const {
    std::string name = Text();
    if (name.empty()) Fail("a text that is not empty is expected");
    return name;
}

bool BookNode::Flag() const {
    if (!value_->is_boolean()) Fail("true or false is expected");
    return value_->get<bool>();
}

std::int32_t BookNode::Whole() const {
    using Limits = std::numeric_limits<std::int32_t>;
    const bool fits =
        value_->is_number_unsigned()
            ? value_->get<std::uint64_t>() <= static_cast<std::uint64_t>(Limits::max())
            : value_->is_number_integer() && value_->get<std::int64_t>() >= Limits::min();
    if (!fits) Fail("a whole number is expected");
    return value_->get<std::int32_t>();
}

void BookNode::Fail(const std::string& fault) const {
    host::Failure failure(host::kFailureTypeMismatch, "desk::BookNode",
                          "In the map book file \"" + *file_ + "\"" +
                              (place_.empty() ? "" : ", at " + place_) + ": " + fault + ".");
    failure.AddFact("file", *file_);
    throw failure;
}

const nlohmann::json& BookNode::Object() const {
    if (!value_->is_object()) Fail("an object is expected");
    return *value_;
}

}  // namespace desk
