#pragma once

#include <cstdint>
#include <string>

#include "host/Host.h"
#include "listings/CellComposer.h"
#include "model/Settings.h"

/// The index table: a scratch table with a row per source row and a text field per column. A
/// listing is known by the number (OID) of its first row.
namespace gazetteer {

/// A sample run stops once it has read more rows than this.
inline constexpr std::int32_t kSampleRows = 500;

/// Why a column of this name can have no field in the index table, or none to sort by, in words;
/// empty where it can.
std::string IndexTableRefusal(const std::string& name, bool sorted);

/// Inner procedure: the new, empty index table.
host::Ref<host::IHostTable> MakeIndexTempTable(host::IHost& host, const Settings& settings);

/// Composes the rows of the source into the index table and returns their number. For an empty
/// source, 0, the status bar keeps its text.
std::int64_t ComposeIndexTable(host::IHost& host, const Settings& settings,
                               const SiblingObjects& siblings, const ListingSource& source,
                               host::IHostTable& indexTable);

/// The rows of the index table in the order of the listings: sorted, or that of the source.
host::Ref<host::IHostCursor> OrderIndexTable(host::IHost& host, const Settings& settings,
                                             const host::Ref<host::IHostTable>& indexTable);

}  // namespace gazetteer
