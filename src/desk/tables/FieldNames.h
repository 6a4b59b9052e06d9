#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace desk {

/// Finds fields by name: the field with exactly that name, else the first that differs in case
/// alone.
class FieldNames {
public:
    FieldNames() = default;
    explicit FieldNames(const std::vector<std::string>& names);

    /// Index of the first such field, or -1.
    std::int32_t Find(const std::string& name) const;
    /// Names of more than one field, compared without regard to case; each listed once.
    const std::vector<std::string>& Repeated() const { return repeated_; }

private:
    std::vector<std::string> names_;
    std::unordered_map<std::string, std::int32_t> folded_;
    std::vector<std::string> repeated_;
};

}  // namespace desk
