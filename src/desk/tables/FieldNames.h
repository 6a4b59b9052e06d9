#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace desk {

/// Finds fields by name without regard to case.
class FieldNames {
public:
    FieldNames() = default;
    explicit FieldNames(const std::vector<std::string>& names);

    /// Index of the first field of that name, or -1.
    std::int32_t Find(const std::string& name) const;
    /// Names that more than one field bears, each once.
    const std::vector<std::string>& Repeated() const { return repeated_; }

private:
    std::unordered_map<std::string, std::int32_t> indexes_;
    std::vector<std::string> repeated_;
};

}  // namespace desk
