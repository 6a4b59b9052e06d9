#include "page/FormControlTable.h"

namespace page_test {

const std::vector<ExpectedTab>& ExpectedTabs() {
    static const std::vector<ExpectedTab> kTabs = {
        {"SSTabGazetteerProperties",
         "Index Source",
         {
             {"Label20", "QLabel",
              "A Gazetteer lists the location of items in a map series (for "
              "example, Main Street...Page 4,B-3).  The index draws on information "
              "from a listing database created using the \"Create Location Listing "
              "Database\" tool."},
             {"Label11", "QLabel", "Listing Database:", "b"},
             {"txtDatabaseFile", "QLineEdit", "", "r"},
             {"cmdSetNewFileName", "QPushButton"},
             {"Label12", "QLabel",
              "IMPORTANT:  The listing database is a snapshot of feature locations "
              "at the time the database was created.  Any changes that are made to "
              "the map book, GIS datasets or layers that effect the number and "
              "location of features will require the recreation of the database!"},
             {"Label5", "QLabel",
              "The listing database can be linked to a Map Series Frame in the map "
              "book.  If the database is linked to a Map Series Frame, page "
              "numbers will be corrected to reflect the location of the map series "
              "in the map book.  For example, if Main Street is on page 1 of a map "
              "series but the map series actually begins on page 5 of the map "
              "book, Main Street will be listed as being on page 5.  Linking also "
              "allows for more options when defining listing text.  IMPORTANT: "
              "Page numbers can only be corrected if the Gazetteer comes after the "
              "Map Series in the map book."},
             {"Label37", "QLabel",
              "IMPORTANT: If you created an \"As Is\" listing database, do not link "
              "it to the Map Series."},
             {"chkLinkToMapSeriesFrame", "QCheckBox", "Link database to Map Series Frame:", "b"},
             {"Label3", "QLabel", "Section:", "b"},
             {"cmbSection", "QComboBox"},
             {"Label7", "QLabel", "Template:", "b"},
             {"CmbTemplate", "QComboBox"},
             {"Label10", "QLabel", "Map Series Frame:", "b"},
             {"cmbMapSeriesFrame", "QComboBox"},
         }},
        {"SSTabGazetteerProperties",
         "Index Layout",
         {
             {"Label19", "QLabel",
              "The index is organized as a series of columns containing different "
              "information (the listing text, the page number, etc.).  You can "
              "modify the content of each column by changing the expression "
              "defining the column as well size, symbol, and other aspects of each "
              "column."},
             {"Label9", "QLabel", "Click on a column to modify its properties:", "b"},
             {"lstListingColumns", "QListWidget"},
             {"cmdAdd", "QPushButton", "Add..."},
             {"cmdRemove", "QPushButton", "Remove..."},
             {"cmdRename", "QPushButton", "Rename...", "hd"},
             {"Label21", "QLabel", "Column Properties:", "b"},
             {"SSTabColumnProps", "QTabWidget"},
         }},
        {"SSTabColumnProps",
         "Column Text",
         {
             {"optColumnSource_0", "QRadioButton", "Get text from Listing Database file", "b"},
             {"optColumnSource_1", "QRadioButton",
              "Get text from Map Series Frame's Index Layer Table", "b"},
             {"Label32", "QLabel",
              "(To use this option link Index Database to a Map Series Frame)"},
             {"lblExpression", "QLabel", "Compose column text using expression:"},
             {"txtExpression", "QPlainTextEdit", "", "r"},
             {"cmdExpression", "QPushButton", "Expression..."},
         }},
        {"SSTabColumnProps",
         "Font",
         {
             {"Label16", "QLabel", "Column font:", "b"},
             {"picColumnFont", "gazetteer::SymbolPreview"},
             {"cmdColumnFont", "QPushButton", "Symbol..."},
             {"Label31", "QLabel", "Alignment:", "b"},
             {"cmbAlignment", "QComboBox"},
             {"cmdColumnFontToAll", "QPushButton", "Apply Symbol To All Columns"},
         }},
        {"SSTabColumnProps",
         "Background",
         {
             {"chkColumnBackground", "QCheckBox", "Color column background", "b"},
             {"chkAlternateBackground", "QCheckBox", "Use alternating background symbols", "b"},
             {"Label17", "QLabel", "Background:", "b"},
             {"picBackgroundSymbol", "gazetteer::SymbolPreview"},
             {"cmdColumnBackgroundsymbol", "QPushButton", "Symbol..."},
             {"Label22", "QLabel", "Alternate Background:", "b"},
             {"picAlternateBackgroundSymbol", "gazetteer::SymbolPreview"},
             {"cmdAlternateBackgroundSymbol", "QPushButton", "Symbol..."},
             {"cmdBackgroundToAll", "QPushButton", "Apply Settings To All Columns"},
         }},
        {"SSTabColumnProps",
         "Size/Margins",
         {
             {"Label23", "QLabel", "Column Width:", "b"},
             {"txtColumnWidth", "QLineEdit"},
             {"Label24", "QLabel", "Margins:", "b"},
             {"Label26", "QLabel", "Top:"},
             {"txtTopMargin", "QLineEdit"},
             {"Label25", "QLabel", "Bottom:"},
             {"txtBottomMargin", "QLineEdit"},
             {"Label27", "QLabel", "Left:"},
             {"txtLeftMargin", "QLineEdit"},
             {"Label28", "QLabel", "Right:"},
             {"txtRightMargin", "QLineEdit"},
             {"cmdMarginsToAll", "QPushButton", "Apply Margins To All Columns"},
         }},
        {"SSTabColumnProps",
         "Column Break",
         {
             {"chkBreakColumn", "QCheckBox", "Break column listings when first letter changes.  ",
              "b"},
             {"Label2", "QLabel", "Spacing:"},
             {"txtBreakSpacing", "QLineEdit"},
             {"Label14", "QLabel", "pts", "h"},
             {"chkBreakHeader", "QCheckBox", "Place new letter heading after break", "b"},
             {"picBreakFont", "gazetteer::SymbolPreview"},
             {"cmdBreakFont", "QPushButton", "Symbol..."},
             {"chkMissingHeaders", "QCheckBox", "Include headings for missing letters", "bhd"},
         }},
        {"SSTabColumnProps",
         "Title",
         {
             {"chkDisplayTitle", "QCheckBox", "Display Title:", "b"},
             {"txtColumnTitle", "QLineEdit"},
             {"Label29", "QLabel", "Font:", "b"},
             {"picTitleFont", "gazetteer::SymbolPreview"},
             {"cmdTitleFont", "QPushButton", "Symbol..."},
             {"Label30", "QLabel", "Background:", "b"},
             {"picTitleBackground", "gazetteer::SymbolPreview"},
             {"cmdTitleBackground", "QPushButton", "Symbol..."},
             {"Label34", "QLabel", "Align:", "b"},
             {"cmbTitleAlignment", "QComboBox"},
             {"cmdTitleSymbolsToAll", "QPushButton", "Apply Symbols To All Columns"},
         }},
        {"SSTabGazetteerProperties",
         "Display/Sort Order",
         {
             {"Label18", "QLabel",
              "The order in which the columns appear in the index is determined by "
              "the order in which the columns appear below."},
             {"lstDisplayOrder", "QListWidget"},
             {"cmdOrderUp", "QPushButton", "Up"},
             {"cmdOrderDown", "QPushButton", "Down"},
             {"cmdOrderTop", "QPushButton", "To Top"},
             {"cmdOrderBottom", "QPushButton", "To Bottom"},
             {"Label13", "QLabel",
              "To rearrange the list select an item and use the buttons to the "
              "right."},
             {"Frame2", "QFrame"},
             {"OptDisplayDirection_0", "QRadioButton", "Columns added from left to right", "bhd"},
             {"OptDisplayDirection_1", "QRadioButton", "Columns added from right to left", "bhd"},
             {"Label6", "QLabel",
              "Listings can be sorted alphabetically over multiple columns.  The "
              "sort order is determined by the order in which the columns appear "
              "below (The top most item in the list being the primary sort column, "
              "the next item the secondary sort column, etc.).  If you do not want "
              "a column to be considered while sorting, uncheck it.  If you do not "
              "choose to sort the index alltogether, listings will be added in the "
              "order that they appear in the listing database file."},
             {"chkSortIndex", "QCheckBox", "Sort Index", "b"},
             {"lstSortOrder", "QListWidget"},
             {"cmdSortUp", "QPushButton", "Up"},
             {"cmdSortDown", "QPushButton", "Down"},
             {"cmdSortTop", "QPushButton", "To Top"},
             {"cmdSortBottom", "QPushButton", "To Bottom"},
             {"Frame1", "QFrame"},
             {"OptSortOrder_0", "QRadioButton", "Ascending", "b"},
             {"OptSortOrder_1", "QRadioButton", "Descending", "b"},
         }},
        {"SSTabGazetteerProperties",
         "Options",
         {
             {"Label15", "QLabel",
              "If a listing appears on multiple pages (for example, Main Street "
              "Page 6, Main Street Page 8), the listings can be combined (i.e. "
              "Main Street Page 6,8) AND/OR the text (other than page numbers and "
              "grid locations) can be dropped from subsequent listings."},
             {"chkCombineListings", "QCheckBox", "Combine multiple listings of the same feature",
              "b"},
             {"Frame3", "QFrame"},
             {"optCombineListings_0", "QRadioButton", "Separate each listed page by a  new line",
              "b"},
             {"optCombineListings_1", "QRadioButton", "Separate listed pages using:", "b"},
             {"txtCombineDelimeter", "QLineEdit", ", "},
             {"ChkCombineFirstAndLast", "QCheckBox",
              "If there are more than two listings, only show first and last "
              "listing",
              "b"},
             {"ChkClearRepeatingText", "QCheckBox",
              "Drop text from subsequent rows when listings are the same", "b"},
             {"Label4", "QLabel",
              "If the gazetteer frame is wide enough, the defined column layout "
              "will be repeated as many times as possible."},
             {"chkMultipleColumnGroups", "QCheckBox",
              "Repeat column layout as many times as frame width will allow", "b"},
             {"Label1_0", "QLabel", "Column Spacing:", "b"},
             {"txtGroupSpacing", "QLineEdit"},
             {"Label36", "QLabel",
              "If you have added a break to one of the columns in the index, this "
              "option will add a break before the first listing if the listing is "
              "not a number."},
             {"ChkAddStartingBreak", "QCheckBox",
              "Add a starting break when first listing on first page is not numeric", "b"},
             {"Label33", "QLabel",
              "The default page is the page that is normally displayed when you "
              "aren't previewing the index pages."},
             {"Label1_1", "QLabel", "Set default page to:", "b"},
             {"txtDefaultPage", "QLineEdit", "1"},
             {"Label35", "QLabel",
              "If you would like to see a sample page of the index before creating "
              "the entire index (which can take a long time to generate), select "
              "the Sample Page option."},
             {"chkSamplePage", "QCheckBox", "Generate a sample index page only", "b"},
             {"chkAutoRefreshListings", "QCheckBox",
              "AutoRefresh listings every time gazetteer frame is refreshed", "bhd"},
         }},
    };
    return kTabs;
}

}  // namespace page_test
