#pragma once

#include <string>

#include "host/Host.h"
#include "model/ColumnProperties.h"
#include "model/Settings.h"

/// The rules of editing a gazetteer's settings, which the property page and the command line share:
/// the default columns of a listing database, column names, adding, removing and ordering columns,
/// and what is stored after every edit. The four column sets of the settings always hold the same
/// names.
namespace gazetteer {

/// Longest column name, in characters.
inline constexpr std::size_t kColumnNameLength = 8;

/// What the user is told when an operation on the list is refused.
host::MessageBoxRequest DatabaseWithoutPageMessage();
host::MessageBoxRequest NameInUseMessage();
host::MessageBoxRequest PageColumnStaysMessage();
host::MessageBoxRequest LastColumnStaysMessage();
/// The question before a removal.
host::MessageBoxRequest RemoveColumnQuestion();

/// Replaces the column lists by those of a new listing database: "Listing" where there is such a
/// field, and "Page". False for a table without "Page", whose lists stay empty; the user is told.
bool DefineColumns(host::IHost& host, const host::IHostFields& fields, Settings& settings);

/// Makes a column name of a typed one: strips outer blanks, replaces inner ones by "_", and keeps
/// the first 8 characters.
std::string CleanColumnName(host::IHostLocale& locale, const std::string& answer);

/// The stored form of a name, compared without regard to case; empty where no column has it.
std::string FindColumn(host::IHostLocale& locale, const Settings& settings,
                       const std::string& name);

/// Appends a column of that name and title with an empty expression. It inherits from the current
/// column where there is one.
void AddColumn(host::IHost& host, Settings& settings, const std::string& name,
               const ColumnProperties* current);

/// Whether the column may be removed; shows the user why not.
bool MayRemoveColumn(host::IHost& host, const Settings& settings, const std::string& name);

/// Removes the column from all four sets.
void RemoveColumn(Settings& settings, const std::string& name);

/// A new set with the names and values of the old one in another order. Every name of the old set
/// is given exactly once.
host::Ref<host::IHostPropertySet> Reordered(host::IHostPropertySetFactory& host,
                                            const host::IHostPropertySet& old,
                                            const std::vector<std::string>& order);

/// Rewrites all keys of the stored set from the settings. Every edit clears the stored results and
/// sets the present version. The columns are stored as a deep copy, so that later changes to the
/// settings do not reach the stored set.
void StoreEdit(host::IHost& host, Settings& settings, bool canDrawIndex,
               host::IHostPropertySet& properties);

/// A deep copy of a stored set without the results of a run.
host::Ref<host::IHostPropertySet> WithoutResults(host::IHostPropertySetFactory& host,
                                                 const host::IHostPropertySet& properties);

/// One column group must fit the frame: the sum of the column widths, in inches and in the order of
/// definition, is at most the frame's width.
bool ColumnsFitFrame(host::IHostLocale& locale, const Settings& settings, double frameWidth);

}  // namespace gazetteer
