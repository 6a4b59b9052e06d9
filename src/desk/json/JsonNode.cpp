#include "desk/json/JsonNode.h"

#include <iomanip>
#include <sstream>
#include <vector>

#include "host/Failure.h"

namespace desk {

JsonNode JsonNode::Member(std::string_view key) const {
    auto member = Optional(key);
    if (!member) Fail("\"" + std::string(key) + "\" is missing");
    return *member;
}

std::optional<JsonNode> JsonNode::Optional(std::string_view key) const {
    for (const auto field : Object())
        if (field.key == key) return JsonNode(field.value, this, field.key, 0);
    return std::nullopt;
}

JsonNode JsonNode::OnlyMember() const {
    const auto object = Object();
    if (object.size() != 1) Fail("an object with one key is expected");
    const auto field = *object.begin();
    return JsonNode(field.value, this, field.key, 0);
}

void JsonNode::CheckNesting(int deepest, const char* things) const {
    int count = 0;
    for (const JsonNode* node = this; node != nullptr; node = node->parent_)
        if (node->key_ == key_) ++count;
    if (count > deepest) Fail(std::string(things) + " stand too deep inside one another");
}

std::string_view JsonNode::Text() const {
    std::string_view text;
    if (value_.get(text) != simdjson::SUCCESS) Fail("a text is expected");
    return text;
}

std::string_view JsonNode::Name() const {
    const auto name = Text();
    if (name.empty()) Fail("a text that is not empty is expected");
    return name;
}

bool JsonNode::Flag() const {
    bool flag = false;
    if (value_.get(flag) != simdjson::SUCCESS) Fail("true or false is expected");
    return flag;
}

std::int32_t JsonNode::Whole(std::int32_t least, std::int32_t greatest) const {
    std::int64_t number = 0;
    if (value_.get(number) != simdjson::SUCCESS || number < least || number > greatest) {
        Fail("a whole number from " + std::to_string(least) + " to " + std::to_string(greatest) +
             " is expected");
    }
    return static_cast<std::int32_t>(number);
}

double JsonNode::Number() const {
    double number = 0;
    if (value_.get(number) == simdjson::SUCCESS) return number;
    std::string_view text;
    if (value_.get(text) == simdjson::SUCCESS) {
        if (text == "inf") return std::numeric_limits<double>::infinity();
        if (text == "-inf") return -std::numeric_limits<double>::infinity();
        if (text == "nan") return std::numeric_limits<double>::quiet_NaN();
    }
    Fail("a number is expected");
}

double JsonNode::NumberIn(double least, double greatest, const char* thing) const {
    const double number = Number();
    if (number >= least && number <= greatest) return number;
    std::ostringstream range;
    range << std::setprecision(9) << thing << " from " << least << " to " << greatest
          << " is expected";
    Fail(range.str());
}

void JsonNode::Fail(const std::string& fault) const {
    const std::string place = Place();
    host::Failure failure(
        host::kFailureTypeMismatch, "desk::JsonNode",
        source_->subject + (place.empty() ? "" : source_->at + place) + ": " + fault + ".");
    failure.AddFact("file", source_->path);
    throw failure;
}

simdjson::dom::array JsonNode::Array() const {
    simdjson::dom::array array;
    if (value_.get(array) != simdjson::SUCCESS) Fail("a list is expected");
    return array;
}

simdjson::dom::object JsonNode::Object() const {
    simdjson::dom::object object;
    if (value_.get(object) != simdjson::SUCCESS) Fail("an object is expected");
    return object;
}

std::string JsonNode::Place() const {
    // Named of a deep place: more than those of a symbol in a column's set.
    constexpr std::ptrdiff_t kFirst = 22;
    constexpr std::ptrdiff_t kLast = 2;
    std::vector<std::string> steps;
    for (const JsonNode* node = this; node->parent_ != nullptr; node = node->parent_)
        steps.insert(steps.begin(), node->key_.empty() ? '[' + std::to_string(node->index_) + ']'
                                                       : '.' + std::string(node->key_));
    if (std::ssize(steps) > kFirst + kLast)
        *steps.erase(steps.begin() + kFirst, steps.end() - kLast - 1) = "\u2026";
    std::string place;
    for (const auto& step : steps) place += step;
    return place.starts_with('.') ? place.substr(1) : place;
}

}  // namespace desk
