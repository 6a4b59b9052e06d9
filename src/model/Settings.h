#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "host/Host.h"
#include "model/Typesetting.h"

namespace gazetteer {

/// "No selection" in the three keys of the link.
inline constexpr char kNoSelection[] = "<None>";

/// The schema version that is written.
inline constexpr std::int32_t kSchemaVersion = 3;

/// Everything that a gazetteer stores, typed. New settings hold the defaults, except that options
/// which older versions do not store are off until they are read. Sets are shared with the property
/// set they were read from, and null in new settings. Lengths are inches.
struct Settings {
    /// Listings are linked to a map series frame; the frame is found by section, template and name.
    bool linkToMapSeries = false;
    std::string mapSeriesSectionKey = kNoSelection;
    std::string mapSeriesTemplateKey = kNoSelection;
    std::string mapSeriesFrameName = kNoSelection;
    /// Full path of the listing database; empty means none.
    std::string indexDatabaseFile;

    /// Column name to the same name, in order of definition.
    host::Ref<host::IHostPropertySet> columnNames;
    /// Column name to the column's set, see ColumnProperties.
    host::Ref<host::IHostPropertySet> columnsProperties;
    /// Stored only: columns always run from the left.
    bool displayLeftToRight = true;
    /// Column name to the same name; the first one stands leftmost.
    host::Ref<host::IHostPropertySet> columnDisplayOrder;

    bool sortColumns = true;
    /// Column name to Boolean: takes part in the sort. The first name is the primary key.
    host::Ref<host::IHostPropertySet> columnSortOrder;
    bool sortAscending = true;

    /// Repeat the columns across the frame, this far apart.
    bool repeatColumns = true;
    double repeatSpacing = 0.1;
    std::int32_t defaultPage = 1;

    /// Rows that differ only in the last column become one listing.
    bool combineListings = true;
    bool combineWithNewLine = true;
    std::string combineDelimeter = ", ";
    bool combineFirstAndLast = false;
    /// Drop text from a row where it repeats the row above.
    bool clearRepeatingText = false;
    /// A break before the very first listing when that is not numeric.
    bool addStartingBreak = false;

    /// Run at every binding; results are then never stored.
    bool autoRefreshListings = false;
    bool haveSavedListings = false;
    host::Ref<host::IHostPropertySet> savedListings;
    host::Ref<host::IHostPropertySet> pageGroups;
    host::Ref<host::IHostPropertySet> pageFirstListings;
    host::Ref<host::IHostPropertySet> pageLastListings;

    bool samplePage = false;
    /// The verdict at the last edit, by the property page or a command.
    bool canDrawIndex = false;
    std::int32_t version = kSchemaVersion;

    /// From a set of its own beside this one; ReadSettings leaves it as it is.
    Typesetting typesetting;
};

/// Which keys are read.
enum class SettingsScope {
    Edit,  ///< What the property page edits: no results of a run, and no verdict.
    All,
};

/// Reads a stored set into the settings, key by key in the order of the table, then the version and
/// the keys that depend on it: keys newer than the stored version become false without being read;
/// with an unknown version they keep their values in the settings. The columns are a deep copy.
/// Fails at a key that cannot be read and leaves those after it unchanged.
void ReadSettings(host::IHost& host, const host::IHostPropertySet& properties, Settings& settings,
                  SettingsScope scope = SettingsScope::All);

/// Writes all keys in the order of the table.
void WriteSettings(const Settings& settings, host::IHostPropertySet& properties);

/// Replaces every null set by a new empty one.
void FillEmptySets(host::IHostPropertySetFactory& host, Settings& settings);

/// Deep copy of a property set.
host::Ref<host::IHostPropertySet> CopySet(host::IHostPropertySetFactory& host,
                                          const host::Ref<host::IHostPropertySet>& set);

/// The set under a name of another set. Fails for an absent name and for another kind of value.
host::Ref<host::IHostPropertySet> SetUnder(const host::IHostPropertySet& set,
                                           const std::string& name);

/// Names of a set in its order, at most this many.
std::vector<std::string> NamesOf(const host::IHostPropertySet& set,
                                 std::size_t most = std::numeric_limits<std::size_t>::max());

}  // namespace gazetteer
