// Gazetteers that cannot be drawn: the page says so, opens all the same, and repairs them.

#include <QComboBox>
#include <filesystem>

#include "page/PageStory.h"
#include "support/DbfBuilder.h"

namespace page_test {
namespace {

class Repairs : public PageStory {
public:
    std::string OtherTable() { return desk_.GridTable({{"Fir St", "1", "2", "3"}}); }
    const std::string& LastText() { return desk_.Dialogs().messages.back().text; }
};

TEST_F(Repairs, AVanishedSectionShowsNoSelection) {
    UseBook();
    Open(6);
    StoreLink("gone");
    OpenSheet();
    EXPECT_EQ(Control<QComboBox>("cmbSection").currentIndex(), -1);
    EXPECT_EQ(Control<QComboBox>("CmbTemplate").count(), 0);
    EXPECT_FALSE(Control("optColumnSource_1").isEnabled());
    Choose("cmbSection", "Maps");
    EXPECT_EQ(Control<QComboBox>("cmbMapSeriesFrame").currentText(), "Main map")
        << "template and frame survive in a section that has them";
    EXPECT_TRUE(Control("optColumnSource_1").isEnabled());
    Press(QDialogButtonBox::Ok);
    EXPECT_EQ(DrawnListings().size(), 3U);
}

TEST_F(Repairs, AnInvalidExpressionStopsTheDrawing) {
    Open();
    Click("chkSamplePage");
    Press(QDialogButtonBox::Apply);
    EXPECT_EQ(DrawnListings().size(), 3U);
    desk_.Column(element_, "Listing")->SetItem("Expression", std::string("[Nowhere]"));
    OpenSheet();
    EXPECT_EQ(Told(), Texts{"Invalid Column Text Expression!"});
    Click("chkSamplePage");
    Press(QDialogButtonBox::Apply);
    EXPECT_EQ(Told(), Texts{"Properties Incomplete"});
    EXPECT_TRUE(IsDraft());
    EXPECT_EQ(DrawnListings(), Texts{});
    EXPECT_EQ(Stored()->Item("CanDrawIndex"), host::Variant(false));

    support::WhenModal([](QWidget& dialog) {
        support::Part<QPlainTextEdit>(dialog, "expression").setPlainText("[Listing]!");
        support::EndButton(dialog, QDialogButtonBox::Ok).click();
    });
    Click("cmdExpression");
    support::WhenModal(support::Escape);
    Click("cmdExpression");
    EXPECT_EQ(Held("Expression"), host::Variant("[Listing]!"));
    Press(QDialogButtonBox::Apply);
    EXPECT_FALSE(IsDraft()) << "an edit takes the element out of draft state";
    EXPECT_EQ(DrawnListings(), (Texts{"Ash St!", "Elm St!", "Oak St!"}));

    host::As<host::IHostFrameElement>(element_)->SetDraft(true);
    Page().Apply();
    EXPECT_TRUE(IsDraft()) << "without an edit";
    EXPECT_EQ(DrawnListings(), Texts{}) << "a drawn page is taken away";
    EXPECT_EQ(Told(), Texts{});
}

TEST_F(Repairs, ColumnsWiderThanTheFrameAreToldOnce) {
    Open();
    Type("txtColumnWidth", "2.1");
    EXPECT_EQ(Told(), Texts{}) << "2.1 and 1.9 fill the frame";
    SelectRow("lstListingColumns", 1);
    Type("txtColumnWidth", "1.95");
    SelectRow("lstListingColumns", 0);
    EXPECT_EQ(Told(), Texts{}) << "the checks are silent while the user edits";
    Click("chkSamplePage");
    EXPECT_EQ(Value("CanDrawIndex"), host::Variant(false));
    Press(QDialogButtonBox::Ok);
    OpenSheet();
    EXPECT_EQ(LastText(),
              "The total width of the defined columns is wider than the width of the Gazetteer "
              "Frame.\r\n\r\nPlease update column widths!");
    EXPECT_EQ(Told(), Texts{"Invalid Column Text Expression!"});
}

TEST_F(Repairs, ADatabaseThatGoesWhileThePageIsOpen) {
    Open();
    std::filesystem::remove(std::get<std::string>(Value("IndexDatabaseFile")));
    const std::string before = Dump(*Stored());
    SelectRow("lstListingColumns", 1);
    EXPECT_NE(LastText().find("\tCheckColumnExpressions CVNGazetteer:frmGazetteerPropertyPage "),
              std::string::npos);
    EXPECT_EQ(Told(), Texts{"Unexpected Program Error"});
    EXPECT_EQ(Dump(*Stored()), before);

    Type("txtColumnTitle", "Where");
    EXPECT_EQ(ColumnValue("Page", "Title"), host::Variant("Where")) << "the selected column";
    Type("txtGroupSpacing", "0.3");
    EXPECT_EQ(Value("CanDrawIndex"), host::Variant(true)) << "there is no new verdict";
    Press(QDialogButtonBox::Apply);
    EXPECT_EQ(Told(), Texts{"Properties Incomplete"});
    EXPECT_TRUE(IsDraft());
    EXPECT_EQ(Stored()->Item("RepeatSpacing"), host::Variant(0.3)) << "it is stored all the same";

    PickDatabase(OtherTable());
    SelectRow("lstListingColumns", 0);
    Press(QDialogButtonBox::Apply);
    EXPECT_FALSE(IsDraft());
    EXPECT_EQ(DrawnListings(), Texts{"Fir St"});
}

// A page that cannot be worked with would leave nobody to repair it.
TEST_F(Repairs, ThePageOpensOnWhatIsBroken) {
    Open();
    std::filesystem::resize_file(std::get<std::string>(Value("IndexDatabaseFile")), 20);
    OpenSheet();
    EXPECT_EQ(Told(), Texts{"Unexpected Program Error"});
    EXPECT_EQ(Control<QLineEdit>("txtDatabaseFile").text(), "");
    PickDatabase(OtherTable());
    Press(QDialogButtonBox::Ok);
    EXPECT_EQ(DrawnListings(), Texts{"Fir St"});

    // A link that corrects page numbers alone does not need the layer's table to be edited.
    Told();
    UseBook();
    StoreLink("maps");
    std::filesystem::remove(desk_.Folder() + "/sheets.dbf");
    OpenSheet();
    Click("chkLinkToMapSeriesFrame");
    Press(QDialogButtonBox::Ok);
    EXPECT_EQ(Told(), Texts{});
    EXPECT_EQ(DrawnListings(), Texts{"Fir St"});
}

TEST_F(Repairs, AColumnThatCannotBeReadIsLeftAlone) {
    Open();
    SelectRow("lstListingColumns", 0);
    EXPECT_FALSE(Page().IsPageDirty()) << "the column was open";
    desk_.Column(element_, "Page")->RemoveItem("Alignment");
    OpenSheet();
    const auto& editors = Control("SSTabColumnProps");
    const std::string before = Dump(*desk_.Column(element_, "Listing"));
    for (int click = 0; click < 2; ++click) {
        SelectRow("lstListingColumns", 1);
        EXPECT_EQ(Told(), Texts{"Unexpected Program Error"}) << "each click tries it again";
        EXPECT_FALSE(editors.isEnabled());
    }
    Control<QLineEdit>("txtColumnTitle").setText("of no column");
    Click("chkSortIndex");
    SelectRow("lstListingColumns", 0);
    EXPECT_TRUE(editors.isEnabled());
    EXPECT_EQ(Control<QLineEdit>("txtColumnTitle").text(), "Listing");
    const auto columns = TestDesk::SetIn(*Working(), "ColumnsProperties");
    EXPECT_EQ(Dump(*TestDesk::SetIn(*columns, "Listing")), before);
}

TEST_F(Repairs, ATableWithoutPageIsRefused) {
    Open();
    support::DbfBuilder({{"Listing", 'C', 10}}).Row({"x"}).Write(desk_.Folder() + "/bare.dbf");
    const std::string before = Dump(*Working());
    PickDatabase("bare.dbf");
    EXPECT_EQ(LastText(), "Selected dBase file does not contain required \"Page\" field!");
    EXPECT_EQ(Told(), Texts{"Invalid Listing Database!"});
    support::WhenModal(support::Escape);
    Click("cmdSetNewFileName");
    EXPECT_EQ(Dump(*Working()), before);
    EXPECT_FALSE(Page().IsPageDirty());
}

}  // namespace
}  // namespace page_test
