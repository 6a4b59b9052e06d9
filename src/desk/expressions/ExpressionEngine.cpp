#include "desk/expressions/ExpressionEngine.h"

#include <array>
#include <string_view>

#include "host/Failure.h"

namespace desk {
namespace {

/// More than the columns of a usual index, so that no expression is parsed again for each row.
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

constexpr std::array<std::string_view, 3> kTokens = {"PAGE_NUMBER", "ROW", "COLUMN"};

class Parser {
public:
    Parser(const host::Ref<host::IHostTable>& table, std::string_view text)
        : table_(table), whole_(text), rest_(text) {}

    Expression Run() {
        while (!rest_.empty() && expression_.finding.text.empty()) Step();
        FlushLiteral();
        return std::move(expression_);
    }

private:
    void Step() {
        if (rest_.front() == '[') return TakeField();
        const std::string_view token = rest_.starts_with("$$") ? TokenAt(rest_.substr(2)) : "";
        if (token.empty()) {
            literal_ += rest_.front();
            rest_.remove_prefix(1);
            return;
        }
        Add(ExpressionPart::Kind::Token, std::string(token), -1);
        rest_.remove_prefix(2 + token.size());
    }

    void TakeField() {
        const std::size_t begin = whole_.size() - rest_.size();
        const std::size_t end = rest_.find(']');
        if (end == std::string_view::npos) {
            expression_.finding = {"[ without ]", {}, begin, rest_.size()};
            return;
        }
        const std::string name(rest_.substr(1, end - 1));
        rest_.remove_prefix(end + 1);
        const std::int32_t index = table_ && !name.empty() ? table_->FindField(name) : -1;
        if (name.empty())
            expression_.finding = {"[] names no field", {}, begin, end + 1};
        else if (index < 0)
            expression_.finding = {"no field named " + name, name, begin, end + 1};
        else
            Add(ExpressionPart::Kind::Field, name, index);
    }

    void Add(ExpressionPart::Kind kind, std::string text, std::int32_t field) {
        FlushLiteral();
        expression_.parts.push_back({kind, std::move(text), field});
    }

    void FlushLiteral() {
        if (literal_.empty()) return;
        expression_.parts.push_back(
            {ExpressionPart::Kind::Literal, std::exchange(literal_, {}), -1});
    }

    const host::Ref<host::IHostTable>& table_;
    std::string_view whole_;
    std::string_view rest_;
    std::string literal_;
    Expression expression_;
};

}  // namespace

std::string_view TokenAt(std::string_view text) {
    std::string_view found;
    for (const std::string_view token : kTokens)
        if (text.starts_with(token) && token.size() > found.size()) found = token;
    return found;
}

Expression ParseExpression(const host::Ref<host::IHostTable>& table, const std::string& text) {
    return Parser(table, text).Run();
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

const Expression& ExpressionEngine::Compile(const host::Ref<host::IHostTable>& table,
                                            const std::string& text) {
    // A new table may have the address of a deleted one, so owners are compared.
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
        result = std::move(*text);  // Moves the text: most cells start with a field or consist of
                                    // one.
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
