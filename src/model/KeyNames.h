#pragma once

/// Names under which a gazetteer stores its values.
namespace gazetteer::keys {

/// Of a gazetteer.
/// @{
inline constexpr char kLinkToMapSeries[] = "LinkToMapSeries";
inline constexpr char kMapSeriesSectionKey[] = "MapSeriesSectionKey";
inline constexpr char kMapSeriesTemplateKey[] = "MapSeriesTemplateKey";
inline constexpr char kMapSeriesFrameName[] = "MapSeriesFrameName";
inline constexpr char kIndexDatabaseFile[] = "IndexDatabaseFile";
inline constexpr char kColumnNames[] = "ColumnNames";
inline constexpr char kColumnsProperties[] = "ColumnsProperties";
inline constexpr char kDisplayLeftToRight[] = "DisplayLeftToRight";
inline constexpr char kColumnDisplayOrder[] = "ColumnDisplayOrder";
inline constexpr char kSortColumns[] = "SortColumns";
inline constexpr char kColumnSortOrder[] = "ColumnSortOrder";
inline constexpr char kSortAscending[] = "SortAscending";
inline constexpr char kRepeatColumns[] = "RepeatColumns";
inline constexpr char kRepeatSpacing[] = "RepeatSpacing";
inline constexpr char kDefaultPage[] = "DefaultPage";
inline constexpr char kCombineListings[] = "CombineListings";
inline constexpr char kCombineWithNewLine[] = "CombineWithNewLine";
inline constexpr char kCombineDelimeter[] = "CombineDelimeter";
inline constexpr char kCombineFirstAndLast[] = "CombineFirstAndLast";
inline constexpr char kClearRepeatingText[] = "ClearRepeatingText";
inline constexpr char kAddStartingBreak[] = "AddStartingBreak";
inline constexpr char kAutoRefreshListings[] = "AutoRefreshListings";
inline constexpr char kHaveSavedListings[] = "HaveSavedListings";
inline constexpr char kSavedListings[] = "SavedListings";
inline constexpr char kPageGroups[] = "PageGroups";
inline constexpr char kPageFirstListings[] = "PageFirstListings";
inline constexpr char kPageLastListings[] = "PageLastListings";
inline constexpr char kSamplePage[] = "SamplePage";
inline constexpr char kCanDrawIndex[] = "CanDrawIndex";
inline constexpr char kVersion[] = "Version";
/// @}

/// Of a column.
/// @{
inline constexpr char kFromDatabase[] = "FromDatabase";
inline constexpr char kExpression[] = "Expression";
inline constexpr char kColumnFontSymbol[] = "ColumnFontSymbol";
inline constexpr char kColorBackground[] = "ColorBackground";
inline constexpr char kBackgroundSymbol[] = "BackgroundSymbol";
inline constexpr char kAlternateBackground[] = "AlternateBackground";
inline constexpr char kAlternateBackgroundSymbol[] = "AlternateBackgroundSymbol";
inline constexpr char kColumnWidth[] = "ColumnWidth";
inline constexpr char kMarginTop[] = "MarginTop";
inline constexpr char kMarginBottom[] = "MarginBottom";
inline constexpr char kMarginLeft[] = "MarginLeft";
inline constexpr char kMarginRight[] = "MarginRight";
inline constexpr char kAlignment[] = "Alignment";
inline constexpr char kBreakColumn[] = "BreakColumn";
inline constexpr char kBreakHeading[] = "BreakHeading";
inline constexpr char kShowMissingLetters[] = "ShowMissingLetters";
inline constexpr char kBreakSpacing[] = "BreakSpacing";
inline constexpr char kBreakFontSymbol[] = "BreakFontSymbol";
inline constexpr char kTitle[] = "Title";
inline constexpr char kShowTitle[] = "ShowTitle";
inline constexpr char kTitleFontSymbol[] = "TitleFontSymbol";
inline constexpr char kTitleBackgroundSymbol[] = "TitleBackgroundSymbol";
inline constexpr char kTitleAlignment[] = "TitleAlignment";
/// @}

}  // namespace gazetteer::keys
