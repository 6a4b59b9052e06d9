#pragma once

#include "host/Host.h"
#include "model/Settings.h"

/// What every edit of a gazetteer's settings does beside changing them.
namespace gazetteer {

/// Rewrites all keys of the stored set from the settings. Any edit throws the stored results away
/// and makes the set one of the present version. The columns are stored as a deep copy, so that the
/// settings keep theirs to themselves.
void StoreEdit(host::IHost& host, Settings& settings, bool canDrawIndex,
               host::IHostPropertySet& properties);

/// One column group must fit the frame: the sum of the column widths, in inches and in the order of
/// definition, is at most the frame's width.
bool ColumnsFitFrame(host::IHostLocale& locale, const Settings& settings, double frameWidth);

}  // namespace gazetteer
