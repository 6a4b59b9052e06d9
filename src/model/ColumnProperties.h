#pragma once

#include <cstdint>
#include <string>

#include "host/Host.h"

namespace gazetteer {

/// What one column stores, typed. Fresh properties hold the defaults, with null symbols. Lengths
/// are inches.
struct ColumnProperties {
    /// Text comes from the listing database; false: from the index layer of the linked frame.
    bool fromDatabase = true;
    std::string expression;
    host::Ref<host::IHostTextSymbol> columnFontSymbol;
    bool colorBackground = true;
    host::Ref<host::IHostFillSymbol> backgroundSymbol;
    /// Every other row takes the second fill.
    bool alternateBackground = false;
    host::Ref<host::IHostFillSymbol> alternateBackgroundSymbol;
    double columnWidth = 2.0;
    double marginTop = 0.05;
    double marginBottom = 0.05;
    double marginLeft = 0.05;
    double marginRight = 0.05;
    /// "Left", "Center", "Right" or "Justify".
    std::string alignment = "Left";
    /// The first letters of this column decide the breaks; breaks show a heading.
    bool breakColumn = false;
    bool breakHeading = false;
    /// Stored only: headings are made for letters that occur.
    bool showMissingLetters = false;
    double breakSpacing = 0.1;  ///< Space above a break heading.
    host::Ref<host::IHostTextSymbol> breakFontSymbol;
    std::string title;
    bool showTitle = true;
    host::Ref<host::IHostTextSymbol> titleFontSymbol;
    host::Ref<host::IHostFillSymbol> titleBackgroundSymbol;
    std::string titleAlignment = "Left";
    std::int32_t version = 1;  ///< Written, never read.
};

/// Which keys of a column's set are read.
enum class ColumnKeyScope {
    Run,  ///< What composing and layout need.
    All,  ///< What the property page shows as well.
};

/// Reads a column's stored set. Symbols are shared with it. A missing key fails.
ColumnProperties ReadColumnProperties(const host::IHostPropertySet& properties,
                                      host::IHostLocale& locale,
                                      ColumnKeyScope scope = ColumnKeyScope::Run);

/// The same properties with copies of the symbols.
ColumnProperties WithOwnSymbols(ColumnProperties column);

/// A new set with all keys in the order of the table. Symbols are shared with the argument.
host::Ref<host::IHostPropertySet> NewColumnSet(host::IHostPropertySetFactory& host,
                                               const ColumnProperties& properties);

/// The set of a new column. Without a current column it holds the defaults; otherwise symbols
/// (copied), backgrounds, sizes and alignments are those of the current column. Title, Expression,
/// FromDatabase and BreakColumn come from the arguments, and BreakHeading equals BreakColumn.
host::Ref<host::IHostPropertySet> MakeColumnProperties(host::IHost& host, const std::string& title,
                                                       const std::string& expression,
                                                       bool fromDatabase, bool breakColumn,
                                                       const ColumnProperties* current);

}  // namespace gazetteer
