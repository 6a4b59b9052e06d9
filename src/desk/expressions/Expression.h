#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/MapBook.h"
#include "host/Tables.h"

namespace desk {

/// One piece of an expression.
struct ExpressionPart {
    enum class Kind { Literal, Field, Token };
    Kind kind = Kind::Literal;
    std::string text;         ///< The literal, the field's name, or the token's key without $$.
    std::int32_t field = -1;  ///< Index of the field.
};

/// An expression taken apart for one table.
struct Expression {
    std::vector<ExpressionPart> parts;
    host::ExpressionFinding finding;  ///< Empty text for a valid expression.
};

/// Takes an expression apart. A null table has no fields.
Expression ParseExpression(const host::Ref<host::IHostTable>& table, const std::string& text);

}  // namespace desk
