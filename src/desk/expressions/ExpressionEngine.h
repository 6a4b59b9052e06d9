#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/Locale.h"
#include "host/MapBook.h"
#include "host/Tables.h"

namespace desk {

/// A part of an expression.
struct ExpressionPart {
    enum class Kind { Literal, Field, Token };
    Kind kind = Kind::Literal;
    std::string text;         ///< The literal, the field's name, or the token's key without $$.
    std::int32_t field = -1;  ///< Index of the field.
};

/// An expression parsed for one table.
struct Expression {
    std::vector<ExpressionPart> parts;
    host::ExpressionFinding finding;  ///< Empty text for a valid expression.
};

/// Parses an expression. A null table has no fields.
Expression ParseExpression(const host::Ref<host::IHostTable>& table, const std::string& text);

/// Column text expressions: literal text with [Field], in any case, and the tokens $$PAGE_NUMBER,
/// $$ROW and $$COLUMN, in this case only. Everything else, other $$ words included, is copied
/// unchanged, and inserted values are not parsed again. Null and blank give empty text.
class ExpressionEngine : public host::CVNExpressionEngine, public host::IHostExpressionExplanation {
public:
    /// The editor of a host that has one. Returns the new expression, or empty for no change.
    using Editor = std::function<std::string(const host::Ref<host::IHostTable>& table,
                                             const std::string& expression,
                                             const std::vector<host::TokenDescription>& tokens)>;

    explicit ExpressionEngine(host::Ref<host::IHostLocale> locale, Editor editor = {})
        : locale_(std::move(locale)), editor_(std::move(editor)) {}

    bool IsValidExpression(const host::Ref<host::IHostTable>& table,
                           const std::string& expression) override {
        return Explain(table, expression).text.empty();
    }
    host::ExpressionFinding Explain(const host::Ref<host::IHostTable>& table,
                                    const std::string& expression) override {
        return ParseExpression(table, expression).finding;
    }
    /// Throws host::Failure for an expression that is not valid, for a field without a row, and for
    /// a token without a value.
    std::string Evaluate(const host::Ref<host::IHostTable>& table,
                         const host::Ref<host::IHostRow>& row, const std::string& expression,
                         const host::TokenValues& tokens) override;
    std::string EditExpression(const host::Ref<host::IHostTable>& table,
                               const std::string& expression,
                               const std::vector<host::TokenDescription>& tokens) override {
        return editor_ ? editor_(table, expression, tokens) : std::string();
    }

private:
    struct Compiled {
        std::weak_ptr<host::IHostTable> table;
        std::string text;
        Expression expression;
    };
    const Expression& Compile(const host::Ref<host::IHostTable>& table, const std::string& text);
    void AppendText(std::string& result, const host::Variant& value);
    void AppendText(std::string& result, host::Variant&& value);

    host::Ref<host::IHostLocale> locale_;
    Editor editor_;
    std::list<Compiled> recent_;  ///< Latest use first.
};

}  // namespace desk
