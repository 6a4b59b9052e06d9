#pragma once

#include <cstdint>

#include "host/Host.h"
#include "model/Results.h"
#include "model/Settings.h"

namespace gazetteer {

/// Inner procedure: turns one stored page into graphics in the gazetteer element. The generated
/// members of an earlier draw go; the page's rows are built anew and placed by the rules of
/// ColumnFlow, the last row of each column group is stretched to the foot of the frame, titles lie
/// in front, and the view is refreshed once. False, and nothing drawn, if the page has no rows.
bool DrawPage(host::IHost& host, const Settings& settings, const WorkingResults& results,
              const host::Ref<host::IHostFillSymbol>& transparentFill,
              const host::Ref<host::IHostGroupElement>& group, std::int32_t pageNumber);

/// The text across a sample page and its symbol: 36 points, red, at 45 degrees.
inline constexpr char kSampleLabel[] = "SAMPLE PAGE";
host::Ref<host::IHostTextSymbol> SampleLabelSymbol(host::IHost& host);

/// Removes the rows of a drawn page and sets the element's draft option. A sample label stays until
/// the next draw.
void TakePageAway(const host::Ref<host::IHostGroupElement>& group);

}  // namespace gazetteer
