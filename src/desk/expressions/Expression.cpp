#include "desk/expressions/Expression.h"

#include <array>
#include <string_view>
#include <utility>

namespace desk {
namespace {

constexpr std::array<std::string_view, 3> kTokens = {"PAGE_NUMBER", "ROW", "COLUMN"};

/// Key of the longest token whose name stands at the start of the text, or empty.
std::string_view TokenAt(std::string_view text) {
    std::string_view found;
    for (const std::string_view token : kTokens)
        if (text.starts_with(token) && token.size() > found.size()) found = token;
    return found;
}

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

Expression ParseExpression(const host::Ref<host::IHostTable>& table, const std::string& text) {
    return Parser(table, text).Run();
}

}  // namespace desk
