// Expressions: parsed, checked, and evaluated for a row and tokens with values of all types. Text
// and result of an expression must equal those of its parts.

#include <cstdint>

#include "Bytes.h"
#include "Checks.h"
#include "FuzzDesk.h"
#include "UnicodeText.h"
#include "desk/expressions/ExpressionEngine.h"
#include "desk/tables/PlainObjects.h"
#include "desk/tables/Scratch.h"

namespace {

using fuzz::Require;
using Kind = desk::ExpressionPart::Kind;

constexpr const char* kFields[] = {"Listing", "Page", "ROW", "Größe", "with blank", "[", "$$ROW"};

host::Ref<host::IHostTable> MakeTable() {
    const auto fields = std::make_shared<desk::Fields>();
    fields->SetFieldCount(std::size(kFields));
    for (std::int32_t i = 0; const char* name : kFields)
        fields->SetField(i++, std::make_shared<desk::Field>(name, host::kFieldTypeText, 20));
    return std::make_shared<desk::ScratchTable>("names", fields);
}

host::Variant TakeValue(fuzz::Bytes& bytes) {
    switch (bytes.Byte() % 8) {
        case 0:
            return host::Null{};
        case 1:
            return bytes.Byte() % 2 == 0;
        case 2:
            return static_cast<std::int16_t>(bytes.Word());
        case 3:
            return static_cast<std::int32_t>(bytes.Word() << 16 | bytes.Word());
        case 4:
            return bytes.Number();
        case 5:
            return host::Ref<host::IHostObject>();
        default:
            return fuzz::Repaired(bytes.Line());
    }
}

struct Cell {
    desk::ExpressionEngine& engine;
    host::Ref<host::IHostTable> table;
    host::Ref<host::IHostRow> row;
    host::TokenValues tokens;

    std::string Evaluate(const std::string& text) const {
        return engine.Evaluate(table, row, text, tokens);
    }
};

std::string SourceOf(const desk::ExpressionPart& part) {
    if (part.kind == Kind::Field) return "[" + part.text + "]";
    return part.kind == Kind::Token ? "$$" + part.text : part.text;
}

/// Computes the result from the parts and compares it.
void RequireSumOfParts(const Cell& cell, const std::string& text,
                       const desk::Expression& expression) {
    std::string source;
    std::string expected;
    bool possible = true;
    for (const auto& part : expression.parts) {
        source += SourceOf(part);
        if (possible) possible = fuzz::Attempt([&] { expected += cell.Evaluate(SourceOf(part)); });
    }
    Require(source == text, "the parts of an expression are not its text");
    std::string result;
    const bool done = fuzz::Attempt([&] { result = cell.Evaluate(text); });
    Require(done == possible, "an expression fails where its parts do not, or the other way round");
    Require(!done || result == expected, "an expression gives something else than its parts");
    if (done) Require(cell.Evaluate(text) == expected, "an expression gives something else anew");
}

void Try(const Cell& cell, const std::string& text) {
    const auto expression = desk::ParseExpression(cell.table, text);
    const auto finding = cell.engine.Explain(cell.table, text);
    Require(finding.text == expression.finding.text, "an expression is judged in two ways");
    const bool valid = cell.engine.IsValidExpression(cell.table, text);
    Require(valid == finding.text.empty(), "an expression is judged in two ways");
    Require(finding.begin + finding.length <= text.size(), "a fault lies outside the expression");
    if (valid)
        RequireSumOfParts(cell, text, expression);
    else
        Require(!fuzz::Attempt([&] { cell.Evaluate(text); }), "what is not valid is evaluated");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto table = MakeTable();
    const auto& desk = fuzz::SharedDesk();
    static desk::ExpressionEngine engine(host::Ref<host::IHostLocale>(desk, &desk->Locale()));

    fuzz::Bytes bytes(data, size);
    Cell cell{engine, table, table->CreateRowBuffer(), {}};
    const auto field = static_cast<std::int32_t>(bytes.Byte() % std::size(kFields));
    cell.row->SetValue(field, TakeValue(bytes));
    cell.row->SetValue(0, std::string("Main St"));
    cell.tokens["PAGE_NUMBER"] = TakeValue(bytes);
    cell.tokens["ROW"] = std::int32_t{4};
    // Documents contain only UTF-8.
    const std::string text = fuzz::Repaired(bytes.Rest());
    Try(cell, text);
    cell.table = nullptr;
    Try(cell, text);
    return 0;
}
