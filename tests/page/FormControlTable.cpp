#include <sstream>

#include "page/BareForm.h"

namespace page_test {
namespace {

constexpr char kForm[] = "SSTabGazetteerProperties";
constexpr char kColumn[] = "SSTabColumnProps";

// Of words like "Label11:b".
std::vector<ExpectedControl> Controls(const char* text) {
    std::vector<ExpectedControl> controls;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const std::size_t cut = word.find(':');
        controls.push_back(
            {word.substr(0, cut), cut == std::string::npos ? "" : word.substr(cut + 1)});
    }
    return controls;
}

}  // namespace

const std::vector<ExpectedTab>& ExpectedTabs() {
    static const std::vector<ExpectedTab> kTabs = {
        {kForm, "Index Source", Controls(R"(
            Label20 Label11:b txtDatabaseFile:r cmdSetNewFileName Label12 Label5 Label37
            chkLinkToMapSeriesFrame:b Label3:b cmbSection Label7:b CmbTemplate Label10:b
            cmbMapSeriesFrame)")},
        {kForm, "Index Layout", Controls(R"(
            Label19 Label9:b lstListingColumns cmdAdd cmdRemove cmdRename:hd Label21:b
            SSTabColumnProps)")},
        {kColumn, "Column Text", Controls(R"(
            optColumnSource_0:b optColumnSource_1:b Label32 lblExpression txtExpression:r
            cmdExpression)")},
        {kColumn, "Font", Controls(R"(
            Label16:b picColumnFont cmdColumnFont Label31:b cmbAlignment cmdColumnFontToAll)")},
        {kColumn, "Background", Controls(R"(
            chkColumnBackground:b chkAlternateBackground:b Label17:b picBackgroundSymbol
            cmdColumnBackgroundsymbol Label22:b picAlternateBackgroundSymbol
            cmdAlternateBackgroundSymbol cmdBackgroundToAll)")},
        {kColumn, "Size/Margins", Controls(R"(
            Label23:b txtColumnWidth Label24:b Label26 txtTopMargin Label25 txtBottomMargin
            Label27 txtLeftMargin Label28 txtRightMargin cmdMarginsToAll)")},
        {kColumn, "Column Break", Controls(R"(
            chkBreakColumn:b Label2 txtBreakSpacing Label14:h chkBreakHeader:b picBreakFont
            cmdBreakFont chkMissingHeaders:bhd)")},
        {kColumn, "Title", Controls(R"(
            chkDisplayTitle:b txtColumnTitle Label29:b picTitleFont cmdTitleFont Label30:b
            picTitleBackground cmdTitleBackground Label34:b cmbTitleAlignment
            cmdTitleSymbolsToAll)")},
        {kForm, "Display/Sort Order", Controls(R"(
            Label18 lstDisplayOrder cmdOrderUp cmdOrderDown cmdOrderTop cmdOrderBottom Label13
            Frame2 OptDisplayDirection_0:bhd OptDisplayDirection_1:bhd Label6 chkSortIndex:b
            lstSortOrder cmdSortUp cmdSortDown cmdSortTop cmdSortBottom Frame1 OptSortOrder_0:b
            OptSortOrder_1:b)")},
        {kForm, "Options", Controls(R"(
            Label15 chkCombineListings:b Frame3 optCombineListings_0:b optCombineListings_1:b
            txtCombineDelimeter ChkCombineFirstAndLast:b ChkClearRepeatingText:b Label4
            chkMultipleColumnGroups:b Label1_0:b txtGroupSpacing Label36 ChkAddStartingBreak:b
            Label33 Label1_1:b txtDefaultPage Label35 chkSamplePage:b
            chkAutoRefreshListings:bhd)")},
    };
    return kTabs;
}

}  // namespace page_test
