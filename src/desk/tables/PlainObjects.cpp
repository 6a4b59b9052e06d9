#include "desk/tables/PlainObjects.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "characters/FoldCase.h"
#include "host/Failure.h"

namespace desk {
namespace {

std::int32_t HostType(gis::FieldKind kind) {
    switch (kind) {
        case gis::FieldKind::Text:
            return host::kFieldTypeText;
        case gis::FieldKind::Number:
            return kFieldTypeNumber;
        case gis::FieldKind::Date:
            return kFieldTypeDate;
        case gis::FieldKind::Logical:
            return kFieldTypeLogical;
        case gis::FieldKind::Memo:
        case gis::FieldKind::Unknown:
            break;
    }
    return kFieldTypeOther;
}

}  // namespace

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

FieldNames::FieldNames(const std::vector<std::string>& names) : names_(names) {
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto [place, isNew] =
            folded_.emplace(characters::FoldCase(names[i]), static_cast<std::int32_t>(i));
        if (isNew) continue;
        const std::string& first = names[static_cast<std::size_t>(place->second)];
        if (std::find(repeated_.begin(), repeated_.end(), first) == repeated_.end())
            repeated_.push_back(first);
    }
}

std::int32_t FieldNames::Find(const std::string& name) const {
    const auto exact = std::find(names_.begin(), names_.end(), name);
    if (exact != names_.end()) return static_cast<std::int32_t>(exact - names_.begin());
    const auto place = folded_.find(characters::FoldCase(name));
    return place == folded_.end() ? -1 : place->second;
}

host::Ref<host::IHostFields> HostFields(const std::vector<gis::SourceField>& fields) {
    auto list = std::make_shared<Fields>();
    list->SetFieldCount(static_cast<std::int32_t>(fields.size()));
    std::int32_t index = 0;
    for (const auto& field : fields)
        list->SetField(index++,
                       std::make_shared<Field>(field.name, HostType(field.kind), field.length));
    return list;
}

host::Variant NumberValue(double number) {
    if (number >= std::numeric_limits<std::int32_t>::min() &&
        number <= std::numeric_limits<std::int32_t>::max() && number == std::trunc(number))
        return static_cast<std::int32_t>(number);
    return number;
}

void RequireEveryRow(const host::Ref<host::IHostQueryFilter>& filter) {
    if (filter && !filter->WhereClause().empty())
        throw host::Failure(host::kFailureUnspecified, "Search",
                            "Conditions on rows are not supported: " + filter->WhereClause());
}

}  // namespace desk
