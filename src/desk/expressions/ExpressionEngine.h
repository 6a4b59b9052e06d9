#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/Locale.h"
#include "host/MapBook.h"
#include "host/Tables.h"

namespace desk {

struct ExpressionPart {
    enum class Kind { Literal, Field, Token };
    Kind kind = Kind::Literal;
    std::string text;         ///< The literal, the field's name, or the token without $$.
    std::int32_t field = -1;  ///< Index of the field.
};

struct Expression {
    std::vector<ExpressionPart> parts;
    host::ExpressionFinding finding;  ///< Empty text if the expression is valid.
};

/// Parses an expression. A null table counts as a table without fields.
Expression ParseExpression(const host::Ref<host::IHostTable>& table, const std::string& text);

/// Returns the longest token with which a text behind "$$" begins, or an empty text.
std::string_view TokenAt(std::string_view text);

/// Expressions for column texts: literal text with [Field], case-insensitive, and the tokens
/// $$PAGE_NUMBER, $$ROW and $$COLUMN, case-sensitive. All other text, including other $$ words, is
/// copied unchanged; inserted values are not parsed again. Null and Empty give an empty text.
class ExpressionEngine : public host::CVNExpressionEngine, public host::IHostExpressionExplanation {
public:
    /// Opens the host's editor. Returns the new expression, or an empty text for no change.
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
    /// Throws host::Failure for an invalid expression, a missing row, or a token without a value.
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
    std::list<Compiled> recent_;  ///< Most recently used first.
};

}  // namespace desk
