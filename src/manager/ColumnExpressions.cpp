#include "manager/ColumnExpressions.h"

#include "model/ColumnProperties.h"
#include "model/Settings.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

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
                       "\" is not valid: " + engine.Explain(table, expression).text + ".");
    return false;
}

}  // namespace

bool CheckColumnExpressions(host::CVNExpressionEngine& engine, host::IHostLocale& locale,
                            const host::IHostPropertySet& properties,
                            const ExpressionTables& tables, Findings& findings) try {
    const auto columnNames = SetUnder(properties, "ColumnNames");
    const auto columns = SetUnder(properties, "ColumnsProperties");
    bool valid = true;
    for (const std::string& name : NamesOf(*columnNames)) {
        const auto column = SetUnder(*columns, name);
        const std::string expression = ToText(column->Item("Expression"), locale);
        auto table = tables.database;
        if (!ToBoolean(column->Item("FromDatabase"))) {
            const bool linked = ToBoolean(properties.Item("LinkToMapSeries")) && tables.linkValid;
            table = linked ? tables.indexLayer : nullptr;
        }
        valid = CheckColumn(engine, name, expression, table, findings) && valid;
    }
    return valid;
} catch (...) {
    PassOn("CheckColumnExpressions", kManagerLabel);
}

}  // namespace gazetteer
