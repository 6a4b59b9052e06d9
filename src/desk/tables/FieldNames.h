#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace desk {

/// Finds fields by name: the one that bears exactly that name, else one that does in another case.
class FieldNames {
public:
    FieldNames() = default;
    explicit FieldNames(const std::vector<std::string>& names);

    /// Index of the first such field, or -1.
    std::int32_t Find(const std::string& name) const;
    /// Names that more than one field bears, in whatever case, each once.
    const std::vector<std::string>& Repeated() const { return repeated_; }

private:
    std::vector<std::string> names_;
    std::unordered_map<std::string, std::int32_t> folded_;
    std::vector<std::string> repeated_;
};

}  // namespace desk
