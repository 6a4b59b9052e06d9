#include "desk/expressions/ExpressionEngine.h"

#include <utility>

#include "host/Failure.h"

namespace desk {
namespace {

/// More columns than an index has, so that each finds its expression at every row.
constexpr std::size_t kKeptExpressions = 32;

[[noreturn]] void Fail(std::int32_t number, const std::string& text) {
    throw host::Failure(number, "ExpressionEngine", text);
}

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

}  // namespace

ExpressionEngine::ExpressionEngine(host::Ref<host::IHostLocale> locale, Editor editor)
    : locale_(std::move(locale)), editor_(std::move(editor)) {}

ExpressionEngine::~ExpressionEngine() = default;

bool ExpressionEngine::IsValidExpression(const host::Ref<host::IHostTable>& table,
                                         const std::string& expression) {
    return Explain(table, expression).text.empty();
}

host::ExpressionFinding ExpressionEngine::Explain(const host::Ref<host::IHostTable>& table,
                                                  const std::string& expression) {
    return ParseExpression(table, expression).finding;
}

std::string ExpressionEngine::Evaluate(const host::Ref<host::IHostTable>& table,
                                       const host::Ref<host::IHostRow>& row,
                                       const std::string& expression,
                                       const host::TokenValues& tokens) {
    const Expression& compiled = Compile(table, expression);
    if (!compiled.finding.text.empty())
        Fail(host::kFailureUnspecified,
             "The expression " + expression + " is not valid: " + compiled.finding.text + ".");
    std::string result;
    for (const ExpressionPart& part : compiled.parts) {
        if (part.kind == ExpressionPart::Kind::Literal) {
            result += part.text;
        } else if (part.kind == ExpressionPart::Kind::Field) {
            if (!row)
                Fail(host::kFailureNotFound, "There is no row to read the field " + part.text +
                                                 " of the expression " + expression + " from.");
            AppendText(result, row->Value(part.field));
        } else {
            const auto token = tokens.find(part.text);
            if (token == tokens.end())
                Fail(host::kFailureNotFound, "There is no value for $$" + part.text +
                                                 " in the expression " + expression + ".");
            AppendText(result, token->second);
        }
    }
    return result;
}

std::string ExpressionEngine::EditExpression(const host::Ref<host::IHostTable>& table,
                                             const std::string& expression,
                                             const std::vector<host::TokenDescription>& tokens) {
    return editor_ ? editor_(table, expression, tokens) : std::string();
}

const Expression& ExpressionEngine::Compile(const host::Ref<host::IHostTable>& table,
                                            const std::string& text) {
    // A table that is gone may have left its address to another; its owner tells them apart.
    const auto isWanted = [&](const Compiled& kept) {
        return !kept.table.owner_before(table) && !table.owner_before(kept.table) &&
               kept.text == text;
    };
    for (auto kept = recent_.begin(); kept != recent_.end(); ++kept) {
        if (!isWanted(*kept)) continue;
        recent_.splice(recent_.begin(), recent_, kept);
        return recent_.front().expression;
    }
    recent_.push_front({table, text, ParseExpression(table, text)});
    if (recent_.size() > kKeptExpressions) recent_.pop_back();
    return recent_.front().expression;
}

void ExpressionEngine::AppendText(std::string& result, host::Variant&& value) {
    auto* const text = std::get_if<std::string>(&value);
    if (text != nullptr && result.empty())
        result = std::move(*text);  // Most cells begin with a field, or are nothing else.
    else
        AppendText(result, value);
}

void ExpressionEngine::AppendText(std::string& result, const host::Variant& value) {
    std::visit(Overloaded{[](host::Empty) {}, [](host::Null) {},
                          [&](bool flag) { result += flag ? "True" : "False"; },
                          [&](std::int16_t number) { result += std::to_string(number); },
                          [&](std::int32_t number) { result += std::to_string(number); },
                          [&](double number) { result += locale_->FormatNumber(number); },
                          [&](const std::string& text) { result += text; },
                          [](const host::Ref<host::IHostObject>&) {
                              Fail(host::kFailureTypeMismatch, "An object has no text.");
                          }},
               value);
}

}  // namespace desk
