#pragma once

#include <string>
#include <vector>

#include "host/Host.h"

namespace gazetteer {

/// Tables that column expressions are checked against.
struct ExpressionTables {
    host::Ref<host::IHostTable> database;
    bool linkValid = false;
    host::Ref<host::IHostTable> indexLayer;  ///< Null without a valid link.
};

/// A reason why an element cannot be drawn, in words.
using Findings = std::vector<std::string>;

/// Inner procedure: whether every column's expression can be evaluated. A column that takes its
/// text from the index layer needs a gazetteer that is linked, by its own setting and in fact. A
/// set without columns is valid. What is wrong is added to the findings.
bool CheckColumnExpressions(host::CVNExpressionEngine& engine, host::IHostLocale& locale,
                            const host::IHostPropertySet& properties,
                            const ExpressionTables& tables, Findings& findings);

}  // namespace gazetteer
