#include "app/tables/FieldText.h"

#include <utility>

#include "app/document/Errors.h"
#include "support/Conversions.h"

namespace app {

FieldText::FieldText(const std::string& option, std::string text,
                     const std::shared_ptr<gis::SourceTable>& table,
                     const host::Ref<host::IHostLocale>& locale)
    : text_(std::move(text)), table_(table), field_(table->FindField(text_)), locale_(locale) {
    if (field_ >= 0) return;
    if (text_.find('[') == std::string::npos)
        throw UsageError(option + ' ' + Shown(text_) + ": " + table->Path() +
                         " has no such field; its fields are " + FieldsOf(*table) + '.');
    engine_ = std::make_shared<desk::ExpressionEngine>(locale_);
    const auto expression = desk::ParseExpression(table, text_);
    for (auto part = expression.parts.rbegin(); part != expression.parts.rend(); ++part)
        if (part->field >= 0) firstOfExpression_ = part->field;
    const std::string& fault = expression.finding.text;
    if (!fault.empty()) throw UsageError(option + ' ' + Shown(text_) + ": " + fault + '.');
}

std::string FieldText::Of(const host::Ref<host::IHostRow>& row) const {
    if (!engine_) return OfField(row, field_);
    if (firstOfExpression_ >= 0 && OfField(row, firstOfExpression_).empty()) return {};
    return engine_->Evaluate(table_, row, text_, {});
}

std::string FieldText::OfField(const host::Ref<host::IHostRow>& row, std::int32_t field) const {
    const auto value = row->Value(field);
    return std::holds_alternative<host::Null>(value) ? std::string()
                                                     : gazetteer::ToText(value, *locale_);
}

std::string FieldsOf(const gis::SourceTable& table) {
    std::string names;
    for (const auto& field : table.SourceFields())
        names += (names.empty() ? "" : ", ") + field.name;
    return names.empty() ? "none" : names;
}

}  // namespace app
