// Single controls: filling changes nothing, and each edit stores what it should.

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMetaMethod>
#include <sstream>

#include "desk/window/ObjectSet.h"
#include "model/Keys.h"
#include "page/DatabasePath.h"
#include "page/PageStory.h"

namespace page_test {
namespace {

using support::TestDesk;

class Edits : public PageStory {
public:
    Edits() { Open(desk_.ListingTable({{"Oak St", "3"}, {"Elm St", "1"}}), 8); }
};

constexpr char kHandlers[] = R"(
Form_Load Form_Activate Form_Deactivate Form_Unload cmdSetNewFileName_Click txtDatabaseFile_Change
chkLinkToMapSeriesFrame_Click cmbSection_Click CmbTemplate_Click cmbMapSeriesFrame_Click
lstListingColumns_Click cmdAdd_Click cmdRemove_Click cmdOrderUp_Click cmdOrderDown_Click
cmdOrderTop_Click cmdOrderBottom_Click cmdSortUp_Click cmdSortDown_Click cmdSortTop_Click
cmdSortBottom_Click lstSortOrder_ItemCheck ChkAddStartingBreak_Click chkAutoRefreshListings_Click
ChkClearRepeatingText_Click ChkCombineFirstAndLast_Click chkCombineListings_Click
chkMultipleColumnGroups_Click chkSamplePage_Click chkSortIndex_Click optCombineListings_Click
OptDisplayDirection_Click OptSortOrder_Click txtCombineDelimeter_Change txtDefaultPage_Change
txtGroupSpacing_Change chkAlternateBackground_Click chkBreakColumn_Click chkBreakHeader_Click
chkColumnBackground_Click chkDisplayTitle_Click chkMissingHeaders_Click cmbAlignment_Click
cmbTitleAlignment_Change txtBottomMargin_Change txtBreakSpacing_Change txtColumnTitle_Change
txtColumnWidth_Change txtExpression_Change txtLeftMargin_Change txtRightMargin_Change
txtTopMargin_Change optColumnSource_Click cmdExpression_Click cmdColumnFont_Click
cmdColumnBackgroundsymbol_Click cmdAlternateBackgroundSymbol_Click cmdBreakFont_Click
cmdTitleFont_Click cmdTitleBackground_Click picColumnFont_Paint picBackgroundSymbol_Paint
picAlternateBackgroundSymbol_Paint picBreakFont_Paint picTitleFont_Paint picTitleBackground_Paint
cmdColumnFontToAll_Click cmdBackgroundToAll_Click cmdMarginsToAll_Click cmdTitleSymbolsToAll_Click)";

// Handlers are connected by their names, so that one that is there is also wired.
TEST_F(Edits, EveryHandlerIsThere) {
    std::string missing;
    std::istringstream handlers(kHandlers);
    const QMetaObject& meta = *Form().metaObject();
    for (std::string handler; handlers >> handler;) {
        bool found = false;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            found = found || meta.method(i).name() == handler.c_str();
        if (!found) missing += handler + '\n';
    }
    EXPECT_EQ(missing, "");
}

TEST_F(Edits, OpeningChangesNothing) {
    EXPECT_EQ(Dump(*Working()), Dump(*Stored()));
    EXPECT_FALSE(Page().IsPageDirty());
    Page().Hide();
    Page().Show();
    EXPECT_EQ(Dump(*Working()), Dump(*Stored()));
    EXPECT_FALSE(Page().IsPageDirty());
}

// Every value is filled from a set in which all of them differ from the defaults and from what the
// controls show at first.
TEST_F(Edits, FillingFromAnotherSetChangesNothing) {
    CloseSheet();
    for (const auto& key : gazetteer::PropertyKeys())
        if (key.kind == gazetteer::ValueKind::Boolean && key.writer == gazetteer::Writer::User)
            Stored()->SetItem(key.name, !std::get<bool>(Stored()->Item(key.name)));
    Stored()->SetItem("LinkToMapSeries", false);
    Stored()->SetItem("RepeatSpacing", 0.375);
    Stored()->SetItem("DefaultPage", std::int32_t{7});
    Stored()->SetItem("CombineDelimeter", std::string(" \u00A0; "));
    for (const char* name : {"Listing", "Page"}) {
        const auto column = desk_.Column(element_, name);
        for (const auto& key : gazetteer::ColumnKeys()) {
            if (key.kind == gazetteer::ValueKind::Boolean)
                column->SetItem(key.name, !std::get<bool>(column->Item(key.name)));
            else if (key.kind == gazetteer::ValueKind::Double)
                column->SetItem(key.name, 0.1 + 0.2);
        }
        column->SetItem("FromDatabase", true);
        column->SetItem("Alignment", std::string("Justify"));
        column->SetItem("TitleAlignment", std::string("Right"));
        column->SetItem("Title", std::string(" two\nlines\u00A0"));
        column->SetItem("Expression", std::string("[Listing]\u00A0\r\n$$DOTS\u2029"));
    }
    const std::string stored = Dump(*Stored());
    OpenSheet();
    EXPECT_EQ(Dump(*Working()), stored);
    EXPECT_FALSE(Page().IsPageDirty());

    // What was filled is what is read: saving an untouched column changes no value of it.
    const auto column = Dump(*desk_.Column(element_, "Listing"));
    SelectRow("lstListingColumns", 1);
    EXPECT_EQ(Dump(*TestDesk::SetIn(*TestDesk::SetIn(*Working(), "ColumnsProperties"), "Listing")),
              column);
}

TEST_F(Edits, AnyEditDropsTheStoredListings) {
    Press("Cancel");
    gazetteer::CVNGazetteerManager manager(desk_.HostRef());
    manager.SetIndexElement(element_);
    ASSERT_EQ(std::get<bool>(Stored()->Item("HaveSavedListings")), true);
    OpenSheet();
    EXPECT_EQ(std::get<bool>(Value("HaveSavedListings")), true);
    Click("chkSortIndex");
    Click("chkSortIndex");
    EXPECT_EQ(std::get<bool>(Value("HaveSavedListings")), false);
    for (const char* key : {"SavedListings", "PageGroups", "PageFirstListings", "PageLastListings"})
        EXPECT_EQ(TestDesk::SetIn(*Working(), key)->Count(), 0) << key;
}

struct Toggle {
    const char* control;
    const char* key;
};

// Every check box and option that can be clicked, with the key that it turns over.
TEST_F(Edits, AClickTurnsItsKeyOver) {
    for (const auto& [control, key] :
         std::vector<Toggle>{{"chkLinkToMapSeriesFrame", "LinkToMapSeries"},
                             {"chkSortIndex", "SortColumns"},
                             {"OptSortOrder_1", "SortAscending"},
                             {"OptSortOrder_0", "SortAscending"},
                             {"chkMultipleColumnGroups", "RepeatColumns"},
                             {"chkCombineListings", "CombineListings"},
                             {"optCombineListings_1", "CombineWithNewLine"},
                             {"ChkCombineFirstAndLast", "CombineFirstAndLast"},
                             {"ChkClearRepeatingText", "ClearRepeatingText"},
                             {"ChkAddStartingBreak", "AddStartingBreak"},
                             {"chkSamplePage", "SamplePage"}}) {
        const bool before = std::get<bool>(Value(key));
        Click(control);
        EXPECT_EQ(std::get<bool>(Value(key)), !before) << control;
    }
    for (const auto& [control, key] :
         std::vector<Toggle>{{"chkColumnBackground", "ColorBackground"},
                             {"chkAlternateBackground", "AlternateBackground"},
                             {"chkBreakColumn", "BreakColumn"},
                             {"chkBreakHeader", "BreakHeading"},
                             {"chkDisplayTitle", "ShowTitle"}}) {
        const bool before = std::get<bool>(ColumnValue("Listing", key));
        const auto page = ColumnValue("Page", key);
        Click(control);
        EXPECT_EQ(std::get<bool>(ColumnValue("Listing", key)), !before) << control;
        EXPECT_EQ(ColumnValue("Page", key), page) << control;
    }
    EXPECT_TRUE(Page().IsPageDirty());
}

struct Typed {
    const char* text;
    double stored;
};

TEST_F(Edits, TypedNumbersAreStoredOrTheirDefaults) {
    const std::vector<Typed> texts = {{"1.25", 1.25}, {"-0.5", -0.5}, {"+3", 3},     {" 2 ", 2},
                                      {"1e2", 100},   {"abc", -1},    {"1.2.3", -1}, {"", -1},
                                      {"1e999", -1},  {"$5", -1}};
    struct Box {
        const char* control;
        const char* key;
        double byDefault;
    };
    for (const auto& [control, key, byDefault] :
         std::vector<Box>{{"txtColumnWidth", "ColumnWidth", 2.0},
                          {"txtTopMargin", "MarginTop", 0.05},
                          {"txtBottomMargin", "MarginBottom", 0.05},
                          {"txtLeftMargin", "MarginLeft", 0.05},
                          {"txtRightMargin", "MarginRight", 0.05},
                          {"txtBreakSpacing", "BreakSpacing", 0.1}})
        for (const auto& [text, stored] : texts) {
            Type(control, text);
            EXPECT_EQ(std::get<double>(ColumnValue("Listing", key)),
                      stored == -1 ? byDefault : stored)
                << control << " \"" << text << '"';
            EXPECT_EQ(Control<QLineEdit>(control).text(), text) << "the box keeps what was typed";
        }
    for (const auto& [text, stored] : texts) {
        Type("txtGroupSpacing", text);
        EXPECT_EQ(std::get<double>(Value("RepeatSpacing")), stored == -1 ? 0.1 : stored) << text;
    }
    for (const auto& [text, stored] : std::vector<Typed>{
             {"3", 3}, {"2.5", 2}, {"3.5", 4}, {"", 1}, {"x", 1}, {"99999999999", 1}, {"-2", -2}}) {
        Type("txtDefaultPage", text);
        EXPECT_EQ(std::get<std::int32_t>(Value("DefaultPage")), stored) << text;
    }
    EXPECT_EQ(Titles(), std::vector<std::string>{});
}

TEST_F(Edits, TextsAndChoicesAreStored) {
    Type("txtCombineDelimeter", " / ");
    EXPECT_EQ(Text("CombineDelimeter"), " / ");
    Type("txtColumnTitle", "Straße & <Weg>");
    EXPECT_EQ(std::get<std::string>(ColumnValue("Listing", "Title")), "Straße & <Weg>");
    for (const char* choice : {"Justify", "Center", "Right", "Left"}) {
        Choose("cmbAlignment", choice);
        EXPECT_EQ(std::get<std::string>(ColumnValue("Listing", "Alignment")), choice);
        Choose("cmbTitleAlignment", choice);
        EXPECT_EQ(std::get<std::string>(ColumnValue("Listing", "TitleAlignment")), choice);
    }
}

TEST_F(Edits, ToAllMovesItsKeysAlone) {
    Type("txtTopMargin", "abc");
    Type("txtLeftMargin", "0.2");
    Type("txtColumnWidth", "1.1");
    Click("chkAlternateBackground");
    const auto width = ColumnValue("Page", "ColumnWidth");
    Click("cmdMarginsToAll");
    EXPECT_EQ(ColumnValue("Page", "MarginTop"), host::Variant(0.05));
    EXPECT_EQ(ColumnValue("Page", "MarginLeft"), host::Variant(0.2));
    EXPECT_EQ(ColumnValue("Page", "ColumnWidth"), width);
    EXPECT_EQ(ColumnValue("Page", "AlternateBackground"), host::Variant(false));
    Click("cmdBackgroundToAll");
    EXPECT_EQ(ColumnValue("Page", "AlternateBackground"), host::Variant(true));
}

TEST_F(Edits, AnOldSetOpensWithTheNewerOptionsOff) {
    CloseSheet();
    for (const char* key :
         {"SamplePage", "ClearRepeatingText", "AddStartingBreak", "CombineFirstAndLast"})
        Stored()->RemoveItem(key);
    Stored()->SetItem("Version", std::int16_t{1});
    OpenSheet();
    EXPECT_EQ(Titles(), std::vector<std::string>{});
    EXPECT_FALSE(Control<QAbstractButton>("ChkCombineFirstAndLast").isChecked());
    Click("chkSortIndex");
    EXPECT_EQ(std::get<std::int16_t>(Value("Version")), 3);
    EXPECT_EQ(std::get<bool>(Value("CombineFirstAndLast")), false);
}

// Other orders of calls than the host's, and objects that are not there, end in a message at most.
TEST_F(Edits, OddCallsDoNoHarm) {
    const auto set = [](const host::Ref<host::IHostElement>& element) {
        return std::make_shared<desk::ObjectSet>(
            std::vector<host::Ref<host::IHostObject>>{element});
    };
    auto& page = Page();
    page.Show();
    const auto other = desk_.NewGazetteer(desk_.ListingTable({{"Fir St", "9"}}), 8, 3);
    const auto table = Stored()->Item("IndexDatabaseFile");
    page.SetObjects(set(other));
    Click("chkSortIndex");
    page.Apply();
    EXPECT_EQ(Stored()->Item("IndexDatabaseFile"), table)
        << "the page had moved to another element";
    EXPECT_EQ(Stored()->Item("SortColumns"), host::Variant(true));
    EXPECT_EQ(std::get<bool>(desk_.Properties(other)->Item("SortColumns")), false);
    EXPECT_EQ(Titles(), std::vector<std::string>{});

    EXPECT_FALSE(page.Applies(nullptr));
    EXPECT_FALSE(page.Applies(set(desk_.Host().NewTextElement())));
    page.SetObjects(nullptr);
    other->SetGeometry(nullptr);
    page.Hide();
    page.Show();
    page.Apply();
    page.Deactivate();
    page.Deactivate();
    page.Hide();
    EXPECT_EQ(Titles(), std::vector<std::string>(4, "Unexpected Program Error"));

    gazetteer::GazetteerPropertyPage empty(desk_.HostRef());
    desk_.Dialogs().messages.clear();
    empty.Apply();
    empty.SetObjects(set(desk_.Host().NewTextElement()));
    empty.Show();
    empty.Hide();
    EXPECT_EQ(Titles(), std::vector<std::string>(3, "Unexpected Program Error"));
}

TEST(DatabasePath, FollowsTheKindOfObject) {
    struct Case {
        const char* category;
        const char* fullName;
        const char* name;
        const char* path;
    };
    for (const auto& [category, fullName, name, path] : std::vector<Case>{
             {"Folder", "C:\\maps", "roads", "C:\\maps\\roads.dbf"},
             {"folder", "/maps", "roads.dbf", "/maps\\roads.dbf"},
             {"FOLDER", "C:\\maps", "roads.DBF", "C:\\maps\\roads.DBF.dbf"},
             {"Folder Connection", "D:\\", "roads", "D:\\roads.dbf"},
             {"Folder Connection", "\\\\server\\maps", "roads", "\\\\server\\maps\\roads.dbf"},
             {"dBASE Table", "/maps/roads.dbf", "ignored", "/maps/roads.dbf"}})
        EXPECT_EQ(gazetteer::DatabasePath(category, fullName, name), path) << category;
}

}  // namespace
}  // namespace page_test
