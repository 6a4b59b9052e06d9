#include "sample/SampleListings.h"

#include "model/ColumnProperties.h"
#include "model/DefaultSymbols.h"

namespace gazetteer {
namespace {

constexpr SampleListing kListings[] = {
    {"1st Avenue", "3\u00A0B-2"},    {"23rd Street", "3\u00A0C-4"},
    {"Abbey Road", "4\u00A0D-1"},    {"Ash Grove", "4\u00A0A-6"},
    {"Ägir Lane", "7\u00A0E-3"},     {"al-Andalus Square", "5\u00A0B-5"},
    {"Baker Street", "4\u00A0C-2"},  {"Botanical Gardens and Arboretum", "8\u00A0F-1"},
    {"Bridge Street", "6\u00A0D-3"}, {"Bridge Street", "6\u00A0D-4"},
    {"Bridge Street", "9\u00A0G-5"}, {"Canal Street", "6\u00A0B-1"},
    {"Castle Hill", "7\u00A0C-5"},   {"Cedar Court", "5\u00A0F-2"},
    {"Chapel Hill", "8\u00A0A-4"},   {"Chestnut Avenue", "8\u00A0E-6"},
    {"Church Lane", "4\u00A0B-3"},   {"Cockermouth-on-the-Water Road", "9\u00A0D-2"},
    {"Cooper Street", "6\u00A0A-2"}, {"Crown Yard", "3\u00A0F-4"},
    {"Dock Road", "9\u00A0B-6"},     {"Dover Street", "7\u00A0A-1"},
    {"Elm Street", "5\u00A0C-3"},    {"Émile Zola Square", "6\u00A0F-5"},
    {"Fair View", "8\u00A0C-2"},
};

constexpr double kPoints = 7;
constexpr std::uint32_t kShade = 0xECECEC;

ColumnProperties SampleColumn(host::IHost& host, double width) {
    ColumnProperties column;
    SetDefaultSymbols(host, column);
    column.columnFontSymbol = MakeTextSymbol(host, kPoints, false);
    column.breakFontSymbol = MakeTextSymbol(host, kPoints + 1, true);
    column.alternateBackground = true;
    column.alternateBackgroundSymbol = MakeFillSymbol(host, kShade);
    column.columnWidth = width;
    column.marginTop = column.marginBottom = 0.003;
    column.marginLeft = column.marginRight = 0.02;
    column.breakSpacing = 0.04;
    column.showTitle = false;
    return column;
}

void AddColumn(host::IHost& host, Settings& settings, const char* name,
               const ColumnProperties& column) {
    const std::string text = name;
    settings.columnNames->SetItem(name, text);
    settings.columnDisplayOrder->SetItem(name, text);
    settings.columnSortOrder->SetItem(name, true);
    settings.columnsProperties->SetItem(name,
                                        host::Ref<host::IHostObject>(NewColumnSet(host, column)));
}

}  // namespace

std::span<const SampleListing> SampleListings() {
    return kListings;
}

Settings SampleSettings(host::IHost& host) {
    Settings settings;
    FillEmptySets(host, settings);
    settings.repeatSpacing = 0.14;
    settings.combineWithNewLine = false;
    settings.addStartingBreak = true;
    ColumnProperties listing = SampleColumn(host, 0.93);
    listing.breakColumn = listing.breakHeading = true;
    AddColumn(host, settings, "Listing", listing);
    ColumnProperties page = SampleColumn(host, 0.48);
    page.expression = "$$PAGE_NUMBER\u00A0$$ROW-$$COLUMN";
    AddColumn(host, settings, "Page", page);
    return settings;
}

}  // namespace gazetteer
