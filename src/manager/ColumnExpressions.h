#pragma once

#include <string>
#include <vector>

#include "host/Host.h"

namespace gazetteer {

/// The columns whose expressions are judged.
struct ExpressionColumns {
    host::Ref<host::IHostPropertySet> names;    ///< Column names, in order of definition.
    host::Ref<host::IHostPropertySet> columns;  ///< Column name to the column's set.
};

/// Tables that column expressions are checked against.
struct ExpressionTables {
    host::Ref<host::IHostTable> database;
    host::Ref<host::IHostTable> indexLayer;  ///< Null without a link in force.
};

/// A reason why an element cannot be drawn, in words.
using Findings = std::vector<std::string>;

/// Whether every column's expression can be evaluated. A column that takes its text from the index
/// layer needs a link. No column at all is valid. What is wrong is added to the findings.
bool JudgeColumnExpressions(host::CVNExpressionEngine& engine, host::IHostLocale& locale,
                            const ExpressionColumns& columns, const ExpressionTables& tables,
                            Findings& findings);

/// Inner procedure: the same for the columns of a stored gazetteer. The index layer counts only if
/// the gazetteer's own settings ask for the link.
bool CheckColumnExpressions(host::CVNExpressionEngine& engine, host::IHostLocale& locale,
                            const host::IHostPropertySet& properties, ExpressionTables tables,
                            Findings& findings);

}  // namespace gazetteer
