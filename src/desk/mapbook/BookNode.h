#pragma once

#include <cstddef>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace desk {

/// A value of a map book file with its place in it, so that a fault in a file that people write by
/// hand can be pointed at. Map books are small: places are kept as text.
class BookNode {
public:
    BookNode(const nlohmann::json& value, const std::string& file) : value_(&value), file_(&file) {}

    bool Has(const std::string& key) const;
    /// Fails where there is no such key.
    BookNode Member(const std::string& key) const;
    /// The items of a list.
    std::vector<BookNode> Items() const;

    std::string Text() const;
    /// A text that is not empty.
    std::string Name() const;
    bool Flag() const;
    std::int32_t Whole() const;

    /// Raises a failure with the file, this place and the fault, a clause such as "a text is
    /// expected".
    [[noreturn]] void Fail(const std::string& fault) const;

private:
    BookNode(const nlohmann::json& value, const std::string* file, std::string place)
        : value_(&value), file_(file), place_(std::move(place)) {}
    const nlohmann::json& Object() const;

    const nlohmann::json* value_;
    const std::string* file_;
    std::string place_;
};

}  // namespace desk
