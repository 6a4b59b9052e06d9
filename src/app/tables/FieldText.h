#pragma once

#include <memory>
#include <string>

#include "desk/expressions/ExpressionEngine.h"
#include "gis/module/SourceTable.h"

namespace app {

/// The text that a record gives for a field's name or for an expression of fields, such as
/// "[name], [town]". An expression gives an empty text where its first field is empty: what has no
/// name has no listing.
class FieldText {
public:
    /// Throws UsageError that names the option if there is no such field, or the expression is not
    /// valid.
    FieldText(const std::string& option, std::string text,
              const std::shared_ptr<gis::SourceTable>& table,
              const host::Ref<host::IHostLocale>& locale);

    bool IsExpression() const { return field_ < 0; }
    /// Index of the field; negative for an expression.
    std::int32_t Field() const { return field_; }
    /// Takes a row of the table, or one with the same fields.
    std::string Of(const host::Ref<host::IHostRow>& row) const;

private:
    std::string OfField(const host::Ref<host::IHostRow>& row, std::int32_t field) const;

    std::string text_;
    std::shared_ptr<gis::SourceTable> table_;
    std::int32_t field_ = -1;
    std::int32_t firstOfExpression_ = -1;
    host::Ref<host::IHostLocale> locale_;
    std::shared_ptr<desk::ExpressionEngine> engine_;
};

/// The names of a table's fields, for a message.
std::string FieldsOf(const gis::SourceTable& table);

}  // namespace app
