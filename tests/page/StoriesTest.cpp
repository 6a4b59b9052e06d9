// Whole stories of a user at the property page; each looks at what is stored and what is drawn.

#include <QCheckBox>
#include <QDoubleSpinBox>

#include "model/GeneralFunctions.h"
#include "page/PageStory.h"
#include "support/DbfBuilder.h"

namespace page_test {
namespace {

class Stories : public PageStory {};

TEST_F(Stories, ANewGazetteerGetsItsDatabaseAndIsApplied) {
    Open();
    const std::string table = std::get<std::string>(Value("IndexDatabaseFile"));
    gazetteer::SetGazetteerProperties(desk_.Host(), element_,
                                      gazetteer::NewGazetteerProperties(desk_.Host()));
    OpenSheet();
    EXPECT_EQ(RowsOf("lstListingColumns"), Texts{});
    EXPECT_FALSE(Control("SSTabColumnProps").isEnabled());
    Click("cmdRemove");
    EXPECT_EQ(Told(), Texts{"Can't Remove!"});

    support::DbfBuilder({{"Listing", 'C', 10}}).Row({"x"}).Write(desk_.Folder() + "/bare.dbf");
    const std::string before = Dump(*Working());
    PickDatabase("bare.dbf");
    EXPECT_EQ(Told(), Texts{"Invalid Listing Database!"}) << "it has no field \"Page\"";
    support::WhenModal(support::Escape);
    Click("cmdSetNewFileName");
    EXPECT_EQ(Dump(*Working()), before);
    EXPECT_FALSE(Page().IsPageDirty());

    PickDatabase(table);
    EXPECT_EQ(RowsOf("lstListingColumns"), (Texts{"Listing", "Page"}));
    EXPECT_TRUE(Control("SSTabColumnProps").isEnabled());
    EXPECT_EQ(Stored()->Item("IndexDatabaseFile"), host::Variant(""))
        << "nothing reaches the element before it is applied";

    Type("txtColumnWidth", "1.5");
    Click("chkSortIndex");
    Press(QDialogButtonBox::Apply);
    EXPECT_EQ(DrawnListings(), (Texts{"Oak St", "Elm St", "Oak St", "Ash St"}));
    EXPECT_EQ(desk_.Column(element_, "Listing")->Item("ColumnWidth"), host::Variant(1.5));
    Click("chkSortIndex");
    Press(QDialogButtonBox::Ok);
    EXPECT_EQ(DrawnListings(), (Texts{"Ash St", "Elm St", "Oak St"}));
    EXPECT_EQ(Stored()->Item("HaveSavedListings"), host::Variant(true));
    EXPECT_EQ(Told(), Texts{});
}

TEST_F(Stories, PagesAreCorrectedThroughTheLink) {
    desk_.UseBook();
    Open(6);
    const auto& indexLayerOption = Control("optColumnSource_1");
    EXPECT_FALSE(indexLayerOption.isEnabled());
    Click("chkLinkToMapSeriesFrame");
    EXPECT_FALSE(indexLayerOption.isEnabled());
    Press(QDialogButtonBox::Apply);
    EXPECT_EQ(Told(), Texts{"Properties Incomplete"}) << "no section is chosen yet";
    LinkToMainMap();
    EXPECT_TRUE(indexLayerOption.isEnabled());
    EXPECT_EQ(Value("MapSeriesSectionKey"), host::Variant("maps"));
    EXPECT_EQ(Value("MapSeriesTemplateKey"), host::Variant("sheet"));
    Choose("cmbMapSeriesFrame", "<None>");
    EXPECT_EQ(Value("MapSeriesFrameName"), host::Variant("Main map")) << "it stays in force";
    SelectRow("lstListingColumns", 1);
    Click("optColumnSource_1");
    Press(QDialogButtonBox::Apply);
    EXPECT_EQ(TestDesk::DrawnTexts(*element_, 1), (Texts{"6", "5", "7\r\n9"}))
        << "page 1 of a series that starts at page 5";

    Choose("cmbSection", "Index");
    EXPECT_EQ(Value("MapSeriesTemplateKey"), host::Variant(""));
    Choose("cmbSection", "<None>");
    EXPECT_EQ(Value("MapSeriesSectionKey"), host::Variant(""));
    Press(QDialogButtonBox::Apply);
    LinkToMainMap();
    Choose("cmbSection", "Index");
    Press(QDialogButtonBox::Apply);
    EXPECT_EQ(Told(), Texts(2, "Properties Incomplete"));
    EXPECT_TRUE(IsDraft());
    EXPECT_EQ(DrawnListings(), Texts{});
}

TEST_F(Stories, ColumnsAreAddedRemovedAndReordered) {
    Open(8);
    AddColumn("  page ");
    EXPECT_EQ(Told(), Texts{"Invalid Name"});
    for (const char* name : {"a b c d e f", "   "}) AddColumn(name);
    for (const char* list : {"lstListingColumns", "lstDisplayOrder", "lstSortOrder"})
        EXPECT_EQ(RowsOf(list), (Texts{"Listing", "Page", "a_b_c_d_"})) << list;
    SelectRow("lstListingColumns", 2);
    Type("txtColumnTitle", "Quarter");
    SelectRow("lstListingColumns", 0);
    EXPECT_EQ(ColumnValue("a_b_c_d_", "Title"), host::Variant("Quarter"));

    SelectRow("lstDisplayOrder", 2);
    for (const char* button : {"cmdOrderTop", "cmdOrderUp", "cmdOrderDown"}) Click(button);
    EXPECT_EQ(RowsOf("lstDisplayOrder"), (Texts{"Listing", "a_b_c_d_", "Page"}));
    SelectRow("lstSortOrder", 1);
    QTest::keyClick(&Control("lstSortOrder"), Qt::Key_Space);
    Click("cmdSortBottom");
    EXPECT_EQ(Dump(*TestDesk::SetIn(*Working(), "ColumnSortOrder")),
              "Listing: 1 t2\na_b_c_d_: 1 t2\nPage: 0 t2\n");

    SelectRow("lstListingColumns", 2);
    Type("txtColumnWidth", "9");
    for (const int row : {1, 2}) SelectRow("lstListingColumns", row);
    EXPECT_EQ(Value("CanDrawIndex"), host::Variant(false)) << "too wide";
    EXPECT_EQ(Told(), Texts{}) << "the checks are silent while the user edits";
    desk_.Dialogs().answer = host::MessageAnswer::No;
    Click("cmdRemove");
    EXPECT_EQ(RowsOf("lstListingColumns").size(), 3U);
    desk_.Dialogs().answer = host::MessageAnswer::Yes;
    Click("cmdRemove");
    EXPECT_EQ(Value("CanDrawIndex"), host::Variant(true));
    EXPECT_EQ(Control<QLineEdit>("txtColumnTitle").text(), "Listing");
    EXPECT_EQ(Control<QListWidget>("lstSortOrder").item(1)->checkState(), Qt::Unchecked);
    Press(QDialogButtonBox::Apply);
    EXPECT_EQ(Dump(*Stored()).find("a_b_c_d_"), std::string::npos);
    EXPECT_EQ(DrawnListings().size(), 3U);
}

// What a button gives to all columns is its keys alone. The form's columns, the working copy and
// the stored set: no two of them hold one object, after whatever edits.
TEST_F(Stories, NothingIsSharedWithOtherColumnsOrWithWhatIsStored) {
    Open(8);
    const auto meet = [&] {
        const auto working = ObjectsIn(*Working());
        for (const auto* object : ObjectsIn(*Stored()))
            if (working.contains(object)) return true;
        return false;
    };
    EXPECT_FALSE(meet());
    std::string stored = Dump(*Stored());
    AddColumn("Third");
    Type("txtTopMargin", "abc");
    Type("txtLeftMargin", "0.2");
    Type("txtColumnWidth", "1.1");
    Click("chkAlternateBackground");
    Click("cmdMarginsToAll");
    EXPECT_EQ(ColumnValue("Page", "MarginTop"), host::Variant(0.05)) << "the default";
    EXPECT_EQ(ColumnValue("Page", "MarginLeft"), host::Variant(0.2));
    EXPECT_EQ(ColumnValue("Page", "ColumnWidth"), host::Variant(1.9));
    EXPECT_EQ(ColumnValue("Page", "AlternateBackground"), host::Variant(false));
    for (const char* toAll : {"cmdColumnFontToAll", "cmdBackgroundToAll", "cmdTitleSymbolsToAll"})
        Click(toAll);
    EXPECT_EQ(ColumnValue("Page", "AlternateBackground"), host::Variant(true));
    EXPECT_EQ(Dump(*Stored()), stored);
    Press(QDialogButtonBox::Apply);
    EXPECT_FALSE(meet());

    const auto columns = TestDesk::SetIn(*Working(), "ColumnsProperties");
    std::size_t symbols = 0;
    for (const auto& name : {"Listing", "Page", "Third"})
        symbols += ObjectsIn(*TestDesk::SetIn(*columns, name)).size();
    EXPECT_EQ(ObjectsIn(*columns).size(), symbols + 3) << "no two columns share a symbol";

    stored = Dump(*Stored());
    Type("txtColumnTitle", "after the apply");
    Click("chkCombineListings");
    Press(QDialogButtonBox::Cancel);
    EXPECT_EQ(Dump(*Stored()), stored);
}

TEST_F(Stories, SymbolsAreEditedInTheHostsDialog) {
    Open();
    Reveal("picColumnFont");
    const auto preview = [&] { return Control("picColumnFont").grab().toImage(); };
    const auto empty = preview();
    const std::string before = Dump(*Working());
    support::WhenModal([](QWidget& dialog) {
        support::Part<QDoubleSpinBox>(dialog, "size").setValue(30);
        support::Escape(dialog);
    });
    Click("cmdColumnFont");
    EXPECT_EQ(Dump(*Working()), before);
    EXPECT_EQ(Told(), Texts{});
    EXPECT_EQ(preview(), empty) << "a symbol without a sample text";

    support::WhenModal([](QWidget& dialog) {
        support::Part<QDoubleSpinBox>(dialog, "size").setValue(14);
        support::EndButton(dialog, QDialogButtonBox::Ok).click();
    });
    Click("cmdColumnFont");
    const auto symbol = host::As<host::IHostTextSymbol>(
        std::get<host::Ref<host::IHostObject>>(Held("ColumnFontSymbol")));
    EXPECT_EQ(symbol->Text(), "Liberation Sans  14");
    EXPECT_NE(preview(), empty);
}

}  // namespace
}  // namespace page_test
