#include "manager/ColumnExpressions.h"

#include "model/KeyNames.h"
#include "model/Settings.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

// Why an expression is not valid, from an engine that tells; it does not affect the verdict.
std::string Explanation(host::CVNExpressionEngine& engine, const host::Ref<host::IHostTable>& table,
                        const std::string& expression) {
    auto* const explaining = dynamic_cast<host::IHostExpressionExplanation*>(&engine);
    if (!explaining) return {};
    try {
        const std::string text = explaining->Explain(table, expression).text;
        return text.empty() ? text : ": " + text;
    } catch (...) {
        return {};
    }
}

bool CheckColumn(host::CVNExpressionEngine& engine, const std::string& name,
                 const std::string& expression, const host::Ref<host::IHostTable>& table,
                 Findings& findings) {
    if (!table) {
        findings.push_back("Column \"" + name +
                           "\" takes its text from the index layer of a map series frame, but the "
                           "gazetteer is not linked to one.");
        return false;
    }
    if (engine.IsValidExpression(table, expression)) return true;
    findings.push_back("Column \"" + name + "\": the expression \"" + expression +
                       "\" is not valid" + Explanation(engine, table, expression) + ".");
    return false;
}

}  // namespace

bool JudgeColumnExpressions(host::CVNExpressionEngine& engine, host::IHostLocale& locale,
                            const ExpressionColumns& columns, const ExpressionTables& tables,
                            Findings& findings) {
    bool valid = true;
    for (const std::string& name : NamesOf(*columns.names)) {
        const auto column = SetUnder(*columns.columns, name);
        const std::string expression = ToText(column->Item(keys::kExpression), locale);
        const bool fromDatabase = ToBoolean(column->Item(keys::kFromDatabase));
        const auto& table = fromDatabase ? tables.database : tables.indexLayer;
        valid = CheckColumn(engine, name, expression, table, findings) && valid;
    }
    return valid;
}

bool CheckColumnExpressions(host::CVNExpressionEngine& engine, host::IHostLocale& locale,
                            const host::IHostPropertySet& properties, ExpressionTables tables,
                            Findings& findings) try {
    if (!ToBoolean(properties.Item(keys::kLinkToMapSeries))) tables.indexLayer = nullptr;
    return JudgeColumnExpressions(
        engine, locale,
        {SetUnder(properties, keys::kColumnNames), SetUnder(properties, keys::kColumnsProperties)},
        tables, findings);
} catch (...) {
    PassOn("CheckColumnExpressions", kManagerLabel);
}

}  // namespace gazetteer
