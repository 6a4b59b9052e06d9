#pragma once

#include "host/Host.h"
#include "model/Results.h"
#include "model/Settings.h"

namespace gazetteer {

/// Inner procedure. Walks the rows of the index table once, in their final order, and makes the
/// listings of them: a row that repeats the row before is dropped, one that differs from it only in
/// the last column is merged into the listing before. Answers column name, in display order, to a
/// set of row key to text, and counts into the report what became of the rows.
host::Ref<host::IHostPropertySet> PopulateRowValuesPropertySet(host::IHost& host,
                                                               const Settings& settings,
                                                               host::IHostCursor& cursor,
                                                               const host::IHostTable& indexTable,
                                                               RunReport& report);

}  // namespace gazetteer
