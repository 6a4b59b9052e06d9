#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "gis/module/SourceTable.h"

namespace desk {

/// Types of dBase fields that the host lacks. The values only need to differ from the host's.
inline constexpr std::int32_t kFieldTypeNumber = 101;
inline constexpr std::int32_t kFieldTypeDate = 102;
inline constexpr std::int32_t kFieldTypeLogical = 103;
inline constexpr std::int32_t kFieldTypeOther = 104;

class Identifier : public host::IHostIdentifier {
public:
    std::string Value() const override { return value_; }
    void SetValue(const std::string& value) override { value_ = value; }

private:
    std::string value_;
};

class Field : public host::IHostField {
public:
    Field() = default;
    Field(std::string name, std::int32_t type, std::int32_t length)
        : name_(std::move(name)), type_(type), length_(length) {}

    std::string Name() const override { return name_; }
    void SetName(const std::string& name) override { name_ = name; }
    std::int32_t Type() const override { return type_; }
    void SetType(std::int32_t type) override { type_ = type; }
    std::int32_t Length() const override { return length_; }
    void SetLength(std::int32_t length) override { length_ = length; }

private:
    std::string name_;
    std::int32_t type_ = host::kFieldTypeText;
    std::int32_t length_ = 0;
};

class Fields : public host::IHostFields {
public:
    std::int32_t FieldCount() const override { return static_cast<std::int32_t>(fields_.size()); }
    /// New positions are empty until SetField.
    void SetFieldCount(std::int32_t count) override;
    host::Ref<host::IHostField> Field(std::int32_t index) const override;
    void SetField(std::int32_t index, const host::Ref<host::IHostField>& field) override;
    /// Ignores case; returns the first of several fields of one name.
    std::int32_t FindField(const std::string& name) const override;

private:
    std::size_t Position(std::int32_t index) const;

    std::vector<host::Ref<host::IHostField>> fields_;
};

class DatasetList : public host::IHostDatasetEnum {
public:
    explicit DatasetList(std::vector<host::Ref<host::IHostDataset>> datasets)
        : datasets_(std::move(datasets)) {}

    host::Ref<host::IHostDataset> Next() override {
        return next_ < datasets_.size() ? datasets_[next_++] : nullptr;
    }

private:
    std::vector<host::Ref<host::IHostDataset>> datasets_;
    std::size_t next_ = 0;
};

class QueryFilter : public host::IHostQueryFilter {
public:
    std::string WhereClause() const override { return clause_; }
    void SetWhereClause(const std::string& clause) override { clause_ = clause; }

private:
    std::string clause_;
};

/// Finds fields by name: an exact match, else the first that differs only in case.
class FieldNames {
public:
    FieldNames() = default;
    explicit FieldNames(const std::vector<std::string>& names);

    /// Returns the index of the field, or -1.
    std::int32_t Find(const std::string& name) const;
    /// Names that several fields share, ignoring case; each listed once.
    const std::vector<std::string>& Repeated() const { return repeated_; }

private:
    std::vector<std::string> names_;
    std::unordered_map<std::string, std::int32_t> folded_;
    std::vector<std::string> repeated_;
};

/// Returns the host's view of a table's fields.
host::Ref<host::IHostFields> HostFields(const std::vector<gis::SourceField>& fields);

/// Returns a number as a table's value: an Integer if it is whole and in range, else a Double.
host::Variant NumberValue(double number);

/// Throws for a filter with a condition, which the desk's tables do not support.
void RequireEveryRow(const host::Ref<host::IHostQueryFilter>& filter);

}  // namespace desk
