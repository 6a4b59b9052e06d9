#include "model/Keys.h"

#include <algorithm>
#include <array>

namespace gazetteer {
namespace {

using enum ValueKind;

constexpr std::array kPropertyKeys = {
    PropertyKey{"LinkToMapSeries", Boolean, &Settings::linkToMapSeries},
    PropertyKey{"MapSeriesSectionKey", String, &Settings::mapSeriesSectionKey},
    PropertyKey{"MapSeriesTemplateKey", String, &Settings::mapSeriesTemplateKey},
    PropertyKey{"MapSeriesFrameName", String, &Settings::mapSeriesFrameName},
    PropertyKey{"IndexDatabaseFile", String, &Settings::indexDatabaseFile},
    PropertyKey{"ColumnNames", Set, &Settings::columnNames, Writer::Run},
    PropertyKey{"ColumnsProperties", Set, &Settings::columnsProperties, Writer::Run},
    PropertyKey{"DisplayLeftToRight", Boolean, &Settings::displayLeftToRight},
    PropertyKey{"ColumnDisplayOrder", Set, &Settings::columnDisplayOrder},
    PropertyKey{"SortColumns", Boolean, &Settings::sortColumns},
    PropertyKey{"ColumnSortOrder", Set, &Settings::columnSortOrder},
    PropertyKey{"SortAscending", Boolean, &Settings::sortAscending},
    PropertyKey{"RepeatColumns", Boolean, &Settings::repeatColumns},
    PropertyKey{"RepeatSpacing", Double, &Settings::repeatSpacing},
    PropertyKey{"DefaultPage", Long, &Settings::defaultPage},
    PropertyKey{"CombineListings", Boolean, &Settings::combineListings},
    PropertyKey{"CombineWithNewLine", Boolean, &Settings::combineWithNewLine},
    PropertyKey{"CombineDelimeter", String, &Settings::combineDelimeter},
    PropertyKey{"CombineFirstAndLast", Boolean, &Settings::combineFirstAndLast, Writer::User, 3},
    PropertyKey{"ClearRepeatingText", Boolean, &Settings::clearRepeatingText, Writer::User, 3},
    PropertyKey{"AddStartingBreak", Boolean, &Settings::addStartingBreak, Writer::User, 3},
    PropertyKey{"AutoRefreshListings", Boolean, &Settings::autoRefreshListings},
    PropertyKey{"HaveSavedListings", Boolean, &Settings::haveSavedListings, Writer::Run},
    PropertyKey{"SavedListings", Set, &Settings::savedListings, Writer::Run},
    PropertyKey{"PageGroups", Set, &Settings::pageGroups, Writer::Run},
    PropertyKey{"PageFirstListings", Set, &Settings::pageFirstListings, Writer::Run},
    PropertyKey{"PageLastListings", Set, &Settings::pageLastListings, Writer::Run},
    PropertyKey{"SamplePage", Boolean, &Settings::samplePage, Writer::User, 2},
    PropertyKey{"CanDrawIndex", Boolean, &Settings::canDrawIndex, Writer::Run},
    PropertyKey{"Version", Integer, &Settings::version, Writer::Run},
};
static_assert(kPropertyKeys.size() == 30);

constexpr std::array kColumnKeys = {
    ColumnKey{"FromDatabase", Boolean, &ColumnProperties::fromDatabase},
    ColumnKey{"Expression", String, &ColumnProperties::expression},
    ColumnKey{"ColumnFontSymbol", TextSymbol, &ColumnProperties::columnFontSymbol},
    ColumnKey{"ColorBackground", Boolean, &ColumnProperties::colorBackground},
    ColumnKey{"BackgroundSymbol", FillSymbol, &ColumnProperties::backgroundSymbol},
    ColumnKey{"AlternateBackground", Boolean, &ColumnProperties::alternateBackground},
    ColumnKey{"AlternateBackgroundSymbol", FillSymbol,
              &ColumnProperties::alternateBackgroundSymbol},
    ColumnKey{"ColumnWidth", Double, &ColumnProperties::columnWidth},
    ColumnKey{"MarginTop", Double, &ColumnProperties::marginTop},
    ColumnKey{"MarginBottom", Double, &ColumnProperties::marginBottom},
    ColumnKey{"MarginLeft", Double, &ColumnProperties::marginLeft},
    ColumnKey{"MarginRight", Double, &ColumnProperties::marginRight},
    ColumnKey{"Alignment", String, &ColumnProperties::alignment},
    ColumnKey{"BreakColumn", Boolean, &ColumnProperties::breakColumn},
    ColumnKey{"BreakHeading", Boolean, &ColumnProperties::breakHeading},
    ColumnKey{"ShowMissingLetters", Boolean, &ColumnProperties::showMissingLetters, true},
    ColumnKey{"BreakSpacing", Double, &ColumnProperties::breakSpacing},
    ColumnKey{"BreakFontSymbol", TextSymbol, &ColumnProperties::breakFontSymbol},
    ColumnKey{"Title", String, &ColumnProperties::title},
    ColumnKey{"ShowTitle", Boolean, &ColumnProperties::showTitle},
    ColumnKey{"TitleFontSymbol", TextSymbol, &ColumnProperties::titleFontSymbol},
    ColumnKey{"TitleBackgroundSymbol", FillSymbol, &ColumnProperties::titleBackgroundSymbol},
    ColumnKey{"TitleAlignment", String, &ColumnProperties::titleAlignment},
    ColumnKey{"Version", Integer, &ColumnProperties::version, true, Writer::Run},
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
