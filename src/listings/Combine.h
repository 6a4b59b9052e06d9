#pragma once

#include "host/Host.h"
#include "model/Results.h"
#include "model/Settings.h"

namespace gazetteer {

/// Inner procedure. Reads the rows of the index table once, in their final order, and makes
/// listings of them: a row that repeats the row before is dropped, one that differs from it only in
/// the last column is merged into the listing before. Returns a set of column name, in display
/// order, to a set of row key to text, and counts the rows in the report.
host::Ref<host::IHostPropertySet> PopulateRowValuesPropertySet(host::IHost& host,
                                                               const Settings& settings,
                                                               host::IHostCursor& cursor,
                                                               const host::IHostTable& indexTable,
                                                               RunReport& report);

}  // namespace gazetteer
