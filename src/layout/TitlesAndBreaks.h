#pragma once

#include <string>

#include "layout/LayoutPass.h"

/// The rows around the listings: titles at the head of every column group, and breaks between
/// listings by first letter.
namespace gazetteer {

/// Inner procedure: the title row; a column without a title has a blank cell in it.
host::Ref<host::IHostElement> MakeTitleGroup(LayoutPass& pass, const host::IHostPoint& position);

/// Inner procedure: the break row that stands before the row. A heading shows the row's letter as
/// it stands there; a digit or an empty cell shows none.
host::Ref<host::IHostElement> MakeBreakGroup(LayoutPass& pass, const std::string& rowKey,
                                             const host::IHostPoint& position, bool alternate);

/// Inner procedure: whether a break is due between two rows: some break column's first letter
/// differs, case aside, and is no digit.
bool RowNeedsBreak(LayoutPass& pass, const std::string& thisRow, const std::string& previousRow);

/// Inner procedure: whether a break is due before the very first listing.
bool NeedsTopMostBreak(LayoutPass& pass);

}  // namespace gazetteer
