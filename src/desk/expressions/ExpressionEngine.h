#pragma once

#include <functional>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "desk/expressions/Expression.h"
#include "host/Locale.h"
#include "host/MapBook.h"

namespace desk {

/// Column text expressions: literal text with [Field], in any case, and the tokens $$PAGE_NUMBER,
/// $$ROW and $$COLUMN, in this case only. Everything else, other $$ words included, passes through
/// as it stands, and what was put in is not looked at again. Null and blank give empty text.
class ExpressionEngine : public host::CVNExpressionEngine, public host::IHostExpressionExplanation {
public:
    /// The editor of a host that has one; the new expression, or empty for no change.
    using Editor = std::function<std::string(const host::Ref<host::IHostTable>& table,
                                             const std::string& expression,
                                             const std::vector<host::TokenDescription>& tokens)>;

    explicit ExpressionEngine(host::Ref<host::IHostLocale> locale, Editor editor = {});
    ~ExpressionEngine() override;

    bool IsValidExpression(const host::Ref<host::IHostTable>& table,
                           const std::string& expression) override;
    host::ExpressionFinding Explain(const host::Ref<host::IHostTable>& table,
                                    const std::string& expression) override;
    /// Fails for an expression that is not valid, for a field without a row, and for a token
    /// without a value.
    std::string Evaluate(const host::Ref<host::IHostTable>& table,
                         const host::Ref<host::IHostRow>& row, const std::string& expression,
                         const host::TokenValues& tokens) override;
    std::string EditExpression(const host::Ref<host::IHostTable>& table,
                               const std::string& expression,
                               const std::vector<host::TokenDescription>& tokens) override;

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
