#pragma once

#include <string>
#include <vector>

#include "desk/expressions/ExpressionEngine.h"

namespace desk {

/// Evaluates an expression for the first records of a table, as a preview.
///  The tokens have no value yet. The preview uses the record's fields "Page", "Row" and "Column",
/// or 1, A and 1 if the table lacks such a field.
class ExpressionPreview {
public:
    /// Reads the first records; throws what the table throws. The table may be null.
    ExpressionPreview(host::Ref<host::IHostTable> table, host::Ref<host::IHostLocale> locale);

    /// Returns one text per record, at most five. Throws for an invalid expression.
    std::vector<std::string> Texts(const std::string& expression);
    /// Returns a sentence for the user that says where the tokens' values come from.
    std::string Sources() const;

private:
    host::TokenValues TokensOf(const host::IHostRow& row) const;

    host::Ref<host::IHostTable> table_;
    ExpressionEngine engine_;
    std::vector<host::Ref<host::IHostRow>> rows_;
};

}  // namespace desk
