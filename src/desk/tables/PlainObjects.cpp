#include "desk/tables/PlainObjects.h"

#include "desk/tables/FieldNames.h"
#include "host/Failure.h"

namespace desk {

std::int32_t Fields::FieldCount() const {
    return static_cast<std::int32_t>(fields_.size());
}

void Fields::SetFieldCount(std::int32_t count) {
    fields_.resize(static_cast<std::size_t>(count < 0 ? 0 : count));
}

host::Ref<host::IHostField> Fields::Field(std::int32_t index) const {
    return fields_[Position(index)];
}

void Fields::SetField(std::int32_t index, const host::Ref<host::IHostField>& field) {
    fields_[Position(index)] = field;
}

std::int32_t Fields::FindField(const std::string& name) const {
    std::vector<std::string> names;
    names.reserve(fields_.size());
    for (const auto& field : fields_) names.push_back(field ? field->Name() : std::string());
    return FieldNames(names).Find(name);
}

std::size_t Fields::Position(std::int32_t index) const {
    if (index < 0 || index >= FieldCount())
        throw host::Failure(host::kFailureNotFound, "Fields",
                            "There is no field number " + std::to_string(index) + " among " +
                                std::to_string(FieldCount()) + " fields.");
    return static_cast<std::size_t>(index);
}

void RequireEveryRow(const host::Ref<host::IHostQueryFilter>& filter) {
    if (filter && !filter->WhereClause().empty())
        throw host::Failure(host::kFailureUnspecified, "Search",
                            "Conditions on rows are not supported: " + filter->WhereClause());
}

}  // namespace desk
