#include "model/Keys.h"

#include <algorithm>
#include <array>

#include "model/KeyNames.h"

namespace gazetteer {
namespace {

using enum ValueKind;

constexpr std::array kPropertyKeys = {
    PropertyKey{keys::kLinkToMapSeries, Boolean, &Settings::linkToMapSeries},
    PropertyKey{keys::kMapSeriesSectionKey, String, &Settings::mapSeriesSectionKey},
    PropertyKey{keys::kMapSeriesTemplateKey, String, &Settings::mapSeriesTemplateKey},
    PropertyKey{keys::kMapSeriesFrameName, String, &Settings::mapSeriesFrameName},
    PropertyKey{keys::kIndexDatabaseFile, String, &Settings::indexDatabaseFile},
    PropertyKey{keys::kColumnNames, Set, &Settings::columnNames, Writer::Run},
    PropertyKey{keys::kColumnsProperties, Set, &Settings::columnsProperties, Writer::Run},
    PropertyKey{keys::kDisplayLeftToRight, Boolean, &Settings::displayLeftToRight},
    PropertyKey{keys::kColumnDisplayOrder, Set, &Settings::columnDisplayOrder},
    PropertyKey{keys::kSortColumns, Boolean, &Settings::sortColumns},
    PropertyKey{keys::kColumnSortOrder, Set, &Settings::columnSortOrder},
    PropertyKey{keys::kSortAscending, Boolean, &Settings::sortAscending},
    PropertyKey{keys::kRepeatColumns, Boolean, &Settings::repeatColumns},
    PropertyKey{keys::kRepeatSpacing, Double, &Settings::repeatSpacing},
    PropertyKey{keys::kDefaultPage, Long, &Settings::defaultPage},
    PropertyKey{keys::kCombineListings, Boolean, &Settings::combineListings},
    PropertyKey{keys::kCombineWithNewLine, Boolean, &Settings::combineWithNewLine},
    PropertyKey{keys::kCombineDelimeter, String, &Settings::combineDelimeter},
    PropertyKey{keys::kCombineFirstAndLast, Boolean, &Settings::combineFirstAndLast, Writer::User,
                3},
    PropertyKey{keys::kClearRepeatingText, Boolean, &Settings::clearRepeatingText, Writer::User, 3},
    PropertyKey{keys::kAddStartingBreak, Boolean, &Settings::addStartingBreak, Writer::User, 3},
    PropertyKey{keys::kAutoRefreshListings, Boolean, &Settings::autoRefreshListings},
    PropertyKey{keys::kHaveSavedListings, Boolean, &Settings::haveSavedListings, Writer::Run},
    PropertyKey{keys::kSavedListings, Set, &Settings::savedListings, Writer::Run},
    PropertyKey{keys::kPageGroups, Set, &Settings::pageGroups, Writer::Run},
    PropertyKey{keys::kPageFirstListings, Set, &Settings::pageFirstListings, Writer::Run},
    PropertyKey{keys::kPageLastListings, Set, &Settings::pageLastListings, Writer::Run},
    PropertyKey{keys::kSamplePage, Boolean, &Settings::samplePage, Writer::User, 2},
    PropertyKey{keys::kCanDrawIndex, Boolean, &Settings::canDrawIndex, Writer::Run},
    PropertyKey{keys::kVersion, Integer, &Settings::version, Writer::Run},
};
static_assert(kPropertyKeys.size() == 30);

constexpr std::array kColumnKeys = {
    ColumnKey{keys::kFromDatabase, Boolean, &ColumnProperties::fromDatabase},
    ColumnKey{keys::kExpression, String, &ColumnProperties::expression},
    ColumnKey{keys::kColumnFontSymbol, TextSymbol, &ColumnProperties::columnFontSymbol},
    ColumnKey{keys::kColorBackground, Boolean, &ColumnProperties::colorBackground},
    ColumnKey{keys::kBackgroundSymbol, FillSymbol, &ColumnProperties::backgroundSymbol},
    ColumnKey{keys::kAlternateBackground, Boolean, &ColumnProperties::alternateBackground},
    ColumnKey{keys::kAlternateBackgroundSymbol, FillSymbol,
              &ColumnProperties::alternateBackgroundSymbol},
    ColumnKey{keys::kColumnWidth, Double, &ColumnProperties::columnWidth},
    ColumnKey{keys::kMarginTop, Double, &ColumnProperties::marginTop},
    ColumnKey{keys::kMarginBottom, Double, &ColumnProperties::marginBottom},
    ColumnKey{keys::kMarginLeft, Double, &ColumnProperties::marginLeft},
    ColumnKey{keys::kMarginRight, Double, &ColumnProperties::marginRight},
    ColumnKey{keys::kAlignment, String, &ColumnProperties::alignment},
    ColumnKey{keys::kBreakColumn, Boolean, &ColumnProperties::breakColumn},
    ColumnKey{keys::kBreakHeading, Boolean, &ColumnProperties::breakHeading},
    ColumnKey{keys::kShowMissingLetters, Boolean, &ColumnProperties::showMissingLetters, true},
    ColumnKey{keys::kBreakSpacing, Double, &ColumnProperties::breakSpacing},
    ColumnKey{keys::kBreakFontSymbol, TextSymbol, &ColumnProperties::breakFontSymbol},
    ColumnKey{keys::kTitle, String, &ColumnProperties::title},
    ColumnKey{keys::kShowTitle, Boolean, &ColumnProperties::showTitle},
    ColumnKey{keys::kTitleFontSymbol, TextSymbol, &ColumnProperties::titleFontSymbol},
    ColumnKey{keys::kTitleBackgroundSymbol, FillSymbol, &ColumnProperties::titleBackgroundSymbol},
    ColumnKey{keys::kTitleAlignment, String, &ColumnProperties::titleAlignment},
    ColumnKey{keys::kVersion, Integer, &ColumnProperties::version, true, Writer::Run},
};
static_assert(kColumnKeys.size() == 24);

template <class Table>
auto Find(const Table& table, std::string_view name) -> decltype(&table[0]) {
    const auto found =
        std::ranges::find(table, name, [](const auto& key) { return std::string_view(key.name); });
    return found == table.end() ? nullptr : &*found;
}

}  // namespace

std::span<const PropertyKey> PropertyKeys() {
    return kPropertyKeys;
}
std::span<const ColumnKey> ColumnKeys() {
    return kColumnKeys;
}

const PropertyKey* FindPropertyKey(std::string_view name) {
    return Find(kPropertyKeys, name);
}
const ColumnKey* FindColumnKey(std::string_view name) {
    return Find(kColumnKeys, name);
}

}  // namespace gazetteer
