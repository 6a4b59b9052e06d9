// Gazetteers that cannot be drawn: the page says so, opens all the same, and repairs them.

#include <QComboBox>
#include <filesystem>

#include "page/PageStory.h"

namespace page_test {
namespace {

class Repairs : public PageStory {
public:
    std::string OtherTable() { return desk_.GridTable({{"Fir St", "1", "2", "3"}}); }
    const std::string& LastText() { return desk_.Dialogs().messages.back().text; }
};

TEST_F(Repairs, AVanishedSectionShowsNoSelection) {
    desk_.UseBook();
    Open(6);
    desk_.StoreLink(element_, "gone");
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

TEST_F(Repairs, InvalidColumnsStopTheDrawing) {
    Open();
    Click("chkSamplePage");
    Press(QDialogButtonBox::Apply);
    EXPECT_EQ(DrawnListings().size(), 3U);
    desk_.Column(element_, "Listing")->SetItem("Expression", std::string("[Nowhere]"));
    desk_.Column(element_, "Listing")->SetItem("ColumnWidth", 2.15);
    OpenSheet();
    EXPECT_EQ(LastText(),
              "The total width of the defined columns is wider than the width of the Gazetteer "
              "Frame.\r\n\r\nPlease update column widths!");
    EXPECT_EQ(Told(), Texts(2, "Invalid Column Text Expression!"));
    Type("txtColumnWidth", "2.1");
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
    EXPECT_EQ(Value("CanDrawIndex"), host::Variant(true)) << "there is no new verdict";
    Press(QDialogButtonBox::Apply);
    EXPECT_EQ(Told(), Texts{"Properties Incomplete"});
    EXPECT_TRUE(IsDraft());
    EXPECT_EQ(desk_.Column(element_, "Page")->Item("Title"), host::Variant("Where"));

    PickDatabase(OtherTable());
    SelectRow("lstListingColumns", 0);
    Press(QDialogButtonBox::Apply);
    EXPECT_FALSE(IsDraft());
    EXPECT_EQ(DrawnListings(), Texts{"Fir St"});

    // One that is damaged counts as gone: a page that does not open would leave nobody to repair
    // it.
    std::filesystem::resize_file(std::get<std::string>(Value("IndexDatabaseFile")), 20);
    OpenSheet();
    EXPECT_EQ(Told(), Texts{"Unexpected Program Error"});
    EXPECT_EQ(Control<QLineEdit>("txtDatabaseFile").text(), "");

    // A link that corrects page numbers alone does not need the layer's table to be edited.
    std::filesystem::copy(GAZETTEER_SOURCE_DIR "/examples/atlas-book.json", desk_.Folder());
    desk_.UseBook(desk_.Folder() + "/atlas-book.json");
    desk_.StoreLink(element_, "maps");
    Stored()->SetItem("IndexDatabaseFile", OtherTable());
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

}  // namespace
}  // namespace page_test
