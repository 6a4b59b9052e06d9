// Whole stories of a user at the property page; each looks at what is stored and what is drawn.

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <filesystem>

#include "page/PageStory.h"
#include "support/DbfBuilder.h"
#include "support/Modal.h"

namespace page_test {
namespace {

using Texts = std::vector<std::string>;
using support::TestDesk;

const TestDesk::Rows kStreets = {
    {"Oak St", "3"}, {"Elm St", "1"}, {"Oak St", "5"}, {"Ash St", "2"}};

// A map section from page 5 on whose template has a frame that pages through "sheets.dbf".
constexpr char kBook[] = R"({"currentTemplate": "index", "books": [{"key": "atlas", "sections": [
   {"key": "maps", "name": "Maps", "startPage": 5, "pages": ["sheet$1", "sheet$2"],
    "templates": [{"key": "sheet", "name": "Map sheet", "layout": [
      {"kind": "mapFrame", "name": "Main map", "series": {"indexLayer": "sheets.dbf",
       "firstPage": 1, "grids": []}}]}]},
   {"key": "back", "name": "Back matter", "startPage": 40, "pages": ["index$1"],
    "templates": [{"key": "index", "name": "Gazetteer", "layout": []}]}]}]})";

const std::pair<std::vector<std::string>, TestDesk::Rows> kSheets = {
    {"REGION"}, {{"North"}, {"East"}, {"South"}, {"West"}, {"Centre"}}};

class Stories : public PageStory {
public:
    bool IsDraft() { return host::As<host::IHostFrameElement>(element_)->Draft(); }

    // Accepts the object dialog with a path typed into its name field.
    void PickDatabase(const std::string& file) {
        support::WhenModal([file](QWidget& dialog) {
            auto* name = dialog.findChild<QLineEdit*>("name");
            name->selectAll();
            QTest::keyClicks(name, QString::fromStdString(file));
            QTest::keyClick(name, Qt::Key_Return);
        });
        Click("cmdSetNewFileName");
    }
};

TEST_F(Stories, ANewGazetteerGetsItsDatabaseAndIsApplied) {
    const std::string table = desk_.ListingTable(kStreets);
    Open("");
    EXPECT_EQ(RowsOf("lstListingColumns"), Texts{});
    EXPECT_FALSE(Control("SSTabColumnProps").isEnabled());
    PickDatabase(std::filesystem::path(table).filename().string());
    EXPECT_EQ(RowsOf("lstListingColumns"), (Texts{"Listing", "Page"}));
    EXPECT_EQ(RowsOf("lstSortOrder"), (Texts{"Listing", "Page"}));
    EXPECT_TRUE(Control("SSTabColumnProps").isEnabled());
    EXPECT_EQ(Stored()->Item("IndexDatabaseFile"), host::Variant(std::string()))
        << "nothing reaches the element before it is applied";

    Type("txtColumnWidth", "1.5");
    Click("chkSortIndex");
    Press("Apply");
    EXPECT_EQ(Titles(), Texts{});
    EXPECT_EQ(DrawnListings().size(), 4U);
    EXPECT_EQ(DrawnListings().front(), "Oak St") << "unsorted: as in the table";
    EXPECT_EQ(std::get<bool>(Stored()->Item("HaveSavedListings")), true);
    EXPECT_EQ(std::get<double>(desk_.Column(element_, "Listing")->Item("ColumnWidth")), 1.5);

    Click("chkSortIndex");
    Press("OK");
    EXPECT_EQ(DrawnListings(), (Texts{"Ash St", "Elm St", "Oak St"}));
}

TEST_F(Stories, PagesAreCorrectedThroughTheLink) {
    desk_.UseBook(kBook, kSheets);
    Open(desk_.ListingTable(kStreets), 6);
    EXPECT_FALSE(Control("optColumnSource_1").isEnabled());
    Click("chkLinkToMapSeriesFrame");
    Choose("cmbSection", "Maps");
    Choose("CmbTemplate", "Map sheet");
    EXPECT_FALSE(Control("optColumnSource_1").isEnabled());
    Choose("cmbMapSeriesFrame", "Main map");
    EXPECT_TRUE(Control("optColumnSource_1").isEnabled());
    EXPECT_EQ(Text("MapSeriesSectionKey"), "maps");
    EXPECT_EQ(Text("MapSeriesTemplateKey"), "sheet");
    EXPECT_EQ(Text("MapSeriesFrameName"), "Main map");

    Choose("cmbMapSeriesFrame", "<None>");
    EXPECT_EQ(Text("MapSeriesFrameName"), "Main map") << "the frame stays in force";
    SelectRow("lstListingColumns", 1);
    Click("optColumnSource_1");
    Press("Apply");
    const auto rows = TestDesk::Members(*element_, "ROWGROUP");
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(TestDesk::CellText(*rows[1], 1), "5") << "page 1 of a series that starts at page 5";

    Choose("cmbSection", "Back matter");
    EXPECT_EQ(Text("MapSeriesTemplateKey"), "");
    Choose("cmbSection", "<None>");
    EXPECT_EQ(Text("MapSeriesSectionKey"), "");
    Choose("cmbSection", "Maps");
    Choose("CmbTemplate", "Map sheet");
    Choose("cmbMapSeriesFrame", "Main map");
    Choose("cmbSection", "Back matter");
    Press("Apply");
    EXPECT_EQ(Titles(), Texts{"Properties Incomplete"});
    EXPECT_TRUE(IsDraft());
    EXPECT_EQ(DrawnListings(), Texts{});
}

TEST_F(Stories, AVanishedSectionShowsNoSelection) {
    desk_.UseBook(kBook, kSheets);
    Open(desk_.ListingTable(kStreets), 6);
    CloseSheet();
    Stored()->SetItem("MapSeriesSectionKey", std::string("gone"));
    Stored()->SetItem("MapSeriesTemplateKey", std::string("sheet"));
    Stored()->SetItem("MapSeriesFrameName", std::string("Main map"));
    Stored()->SetItem("LinkToMapSeries", true);
    OpenSheet();
    EXPECT_EQ(Control<QComboBox>("cmbSection").currentIndex(), -1);
    EXPECT_EQ(Control<QComboBox>("CmbTemplate").count(), 0);
    EXPECT_FALSE(Control("optColumnSource_1").isEnabled());
    Choose("cmbSection", "Maps");
    EXPECT_EQ(Control<QComboBox>("cmbMapSeriesFrame").currentText(), "Main map")
        << "template and frame survive in a section that has them";
    EXPECT_TRUE(Control("optColumnSource_1").isEnabled());
    Press("OK");
    EXPECT_EQ(DrawnListings().size(), 3U);
}

TEST_F(Stories, ColumnsAreAddedRemovedAndReordered) {
    Open(desk_.ListingTable(kStreets), 8);
    const auto add = [&](const char* name) {
        desk_.Dialogs().input = name;
        Click("cmdAdd");
    };
    add("  page ");
    EXPECT_EQ(Titles(), Texts{"Invalid Name"});
    add("a b c d e f");
    add("Listing2!");
    add("   ");
    const Texts columns = {"Listing", "Page", "a_b_c_d_", "Listing2"};
    EXPECT_EQ(RowsOf("lstListingColumns"), columns);
    EXPECT_EQ(RowsOf("lstDisplayOrder"), columns);
    EXPECT_EQ(RowsOf("lstSortOrder"), columns);

    SelectRow("lstListingColumns", 2);
    Type("txtColumnTitle", "Quarter");
    Type("txtColumnWidth", "1");
    SelectRow("lstListingColumns", 3);
    EXPECT_EQ(std::get<std::string>(ColumnValue("a_b_c_d_", "Title")), "Quarter");

    SelectRow("lstDisplayOrder", 2);
    Click("cmdOrderTop");
    Click("cmdOrderUp");
    Click("cmdOrderDown");
    EXPECT_EQ(RowsOf("lstDisplayOrder"), (Texts{"Listing", "a_b_c_d_", "Page", "Listing2"}));
    SelectRow("lstSortOrder", 1);
    QTest::keyClick(&Control("lstSortOrder"), Qt::Key_Space);
    Click("cmdSortBottom");
    EXPECT_EQ(RowsOf("lstSortOrder"), (Texts{"Listing", "a_b_c_d_", "Listing2", "Page"}));
    EXPECT_EQ(Dump(*TestDesk::SetIn(*Working(), "ColumnSortOrder")),
              "Listing: 1 t2\na_b_c_d_: 1 t2\nListing2: 1 t2\nPage: 0 t2\n");

    SelectRow("lstListingColumns", 3);
    Type("txtColumnTitle", "to be gone");
    desk_.Dialogs().answer = host::MessageAnswer::No;
    Click("cmdRemove");
    EXPECT_EQ(RowsOf("lstListingColumns").size(), 4U);
    desk_.Dialogs().answer = host::MessageAnswer::Yes;
    Click("cmdRemove");
    EXPECT_EQ(RowsOf("lstListingColumns"), (Texts{"Listing", "Page", "a_b_c_d_"}));
    EXPECT_EQ(Control<QLineEdit>("txtColumnTitle").text(), "Listing");
    for (const char* set :
         {"ColumnNames", "ColumnsProperties", "ColumnDisplayOrder", "ColumnSortOrder"})
        EXPECT_EQ(TestDesk::SetIn(*Working(), set)->Count(), 3) << set;

    desk_.Dialogs().messages.clear();
    SelectRow("lstListingColumns", 1);
    Click("cmdRemove");
    EXPECT_EQ(Titles(), Texts{"Can't Remove!"});
    SelectRow("lstListingColumns", 2);
    Click("cmdRemove");
    desk_.Dialogs().messages.clear();
    SelectRow("lstListingColumns", 0);
    Click("cmdRemove");
    EXPECT_EQ(Titles(), Texts{"Can't Remove!"});
    EXPECT_EQ(RowsOf("lstListingColumns"), (Texts{"Listing", "Page"}));

    Press("Apply");
    EXPECT_EQ(Dump(*Stored()).find("a_b_c_d_"), std::string::npos);
    EXPECT_EQ(DrawnListings().size(), 3U);
}

// The form's columns, the working copy and the stored set: no two of them hold one object, after
// whatever edits.
TEST_F(Stories, NothingIsSharedWithWhatIsStored) {
    Open(desk_.ListingTable(kStreets), 8);
    const auto meet = [&] {
        const auto working = ObjectsIn(*Working());
        for (const auto* object : ObjectsIn(*Stored()))
            if (working.contains(object)) return true;
        return false;
    };
    EXPECT_FALSE(meet());
    desk_.Dialogs().input = "Third";
    Click("cmdAdd");
    Click("cmdColumnFontToAll");
    Click("cmdBackgroundToAll");
    Click("cmdTitleSymbolsToAll");
    Press("Apply");
    EXPECT_FALSE(meet());

    const auto columns = TestDesk::SetIn(*Working(), "ColumnsProperties");
    std::size_t symbols = 0;
    for (const auto& name : {"Listing", "Page", "Third"})
        symbols += ObjectsIn(*TestDesk::SetIn(*columns, name)).size();
    EXPECT_EQ(ObjectsIn(*columns).size(), symbols + 3) << "no two columns share a symbol";

    const std::string stored = Dump(*Stored());
    SelectRow("lstListingColumns", 2);
    Type("txtColumnTitle", "after the apply");
    EXPECT_EQ(Dump(*Stored()), stored) << "edits wait for the next apply";
    Press("Cancel");
    EXPECT_EQ(Dump(*Stored()), stored);
}

TEST_F(Stories, CancelLeavesTheElementAsItWas) {
    Open(desk_.ListingTable(kStreets));
    const std::string before = Dump(*Stored());
    Type("txtGroupSpacing", "0.5");
    Click("chkCombineListings");
    SelectRow("lstListingColumns", 1);
    Type("txtColumnTitle", "p.");
    desk_.Dialogs().input = "Third";
    Click("cmdAdd");
    EXPECT_TRUE(Page().IsPageDirty());
    Press("Cancel");
    EXPECT_EQ(Dump(*Stored()), before);
}

TEST_F(Stories, AnInvalidExpressionStopsTheDrawing) {
    Open(desk_.ListingTable(kStreets));
    Click("chkSamplePage");
    Press("Apply");
    EXPECT_EQ(DrawnListings().size(), 3U);
    CloseSheet();
    desk_.Column(element_, "Listing")->SetItem("Expression", std::string("[Nowhere]"));
    OpenSheet();
    EXPECT_EQ(Titles(), Texts{"Invalid Column Text Expression!"});
    desk_.Dialogs().messages.clear();
    Click("chkSamplePage");
    Press("Apply");
    EXPECT_EQ(Titles(), Texts{"Properties Incomplete"});
    EXPECT_TRUE(IsDraft());
    EXPECT_EQ(DrawnListings(), Texts{});
    EXPECT_EQ(std::get<bool>(Stored()->Item("CanDrawIndex")), false);

    support::WhenModal([](QWidget& dialog) {
        auto* text = dialog.findChild<QPlainTextEdit*>("expression");
        text->selectAll();
        QTest::keyClicks(text, "[Listing]!");
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    Click("cmdExpression");
    EXPECT_EQ(Control<QPlainTextEdit>("txtExpression").toPlainText(), "[Listing]!");
    support::WhenModal([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    Click("cmdExpression");
    EXPECT_EQ(std::get<std::string>(ColumnValue("Listing", "Expression")), "[Listing]!");
    Press("Apply");
    EXPECT_FALSE(IsDraft()) << "an edit takes the element out of draft state";
    EXPECT_EQ(DrawnListings(), (Texts{"Ash St!", "Elm St!", "Oak St!"}));
}

TEST_F(Stories, ColumnsWiderThanTheFrameAreToldOnce) {
    Open(desk_.ListingTable(kStreets), 4);
    Type("txtColumnWidth", "2.1");
    EXPECT_EQ(Titles(), Texts{}) << "2.1 and 1.9 fill the frame";
    SelectRow("lstListingColumns", 1);
    Type("txtColumnWidth", "1.95");
    SelectRow("lstListingColumns", 0);
    EXPECT_EQ(Titles(), Texts{}) << "the checks are silent while the user edits";
    Click("chkSamplePage");
    EXPECT_EQ(std::get<bool>(Value("CanDrawIndex")), false);
    Press("OK");
    OpenSheet();
    EXPECT_EQ(Titles(), Texts{"Invalid Column Text Expression!"});
    EXPECT_EQ(desk_.Dialogs().messages.back().text,
              "The total width of the defined columns is wider than the width of the Gazetteer "
              "Frame.\r\n\r\nPlease update column widths!");
}

TEST_F(Stories, DraftStateLastsUntilAnEdit) {
    Open(desk_.ListingTable(kStreets));
    Click("chkSamplePage");
    Press("Apply");
    EXPECT_EQ(DrawnListings().size(), 3U);
    CloseSheet();
    host::As<host::IHostFrameElement>(element_)->SetDraft(true);
    OpenSheet();
    Page().Apply();
    EXPECT_TRUE(IsDraft());
    EXPECT_EQ(DrawnListings(), Texts{}) << "a drawn page is taken away";
    Click("chkSamplePage");
    EXPECT_FALSE(IsDraft());
    Press("Apply");
    EXPECT_EQ(DrawnListings().size(), 3U);
    EXPECT_EQ(Titles(), Texts{});
}

TEST_F(Stories, ADatabaseThatGoesWhileThePageIsOpen) {
    const std::string table = desk_.ListingTable(kStreets);
    const std::string other = desk_.GridTable({{"Fir St", "1", "2", "3"}});
    Open(table);
    std::filesystem::remove(table);
    const std::string before = Dump(*Stored());
    SelectRow("lstListingColumns", 1);
    EXPECT_EQ(Titles(), Texts{"Unexpected Program Error"});
    const std::string shown = desk_.Dialogs().messages.back().text;
    EXPECT_NE(shown.find("\tlstListingColumns_Click CVNGazetteer:frmGazetteerPropertyPage "),
              std::string::npos)
        << shown;
    EXPECT_NE(shown.find("\tCheckColumnExpressions CVNGazetteer:frmGazetteerPropertyPage "),
              std::string::npos)
        << shown;
    EXPECT_EQ(Dump(*Stored()), before);

    desk_.Dialogs().messages.clear();
    Type("txtGroupSpacing", "0.3");
    Press("Apply");
    EXPECT_EQ(Titles(), Texts{"Properties Incomplete"});
    EXPECT_TRUE(IsDraft());
    EXPECT_EQ(Stored()->Item("RepeatSpacing"), host::Variant(0.3))
        << "the edit is stored all the same";

    desk_.Dialogs().messages.clear();
    PickDatabase(std::filesystem::path(other).filename().string());
    SelectRow("lstListingColumns", 0);
    Press("Apply");
    EXPECT_FALSE(IsDraft());
    EXPECT_EQ(DrawnListings(), Texts{"Fir St"});
}

// A page that cannot be worked with would leave nobody to repair it.
TEST_F(Stories, ThePageOpensOnWhatIsBroken) {
    const std::string table = desk_.ListingTable(kStreets);
    const std::string other = desk_.GridTable({{"Fir St", "1", "2", "3"}});
    Open(table);
    CloseSheet();
    std::filesystem::resize_file(table, 20);
    OpenSheet();
    EXPECT_EQ(Titles(), Texts{"Unexpected Program Error"});
    EXPECT_EQ(Control<QLineEdit>("txtDatabaseFile").text(), "");
    PickDatabase(std::filesystem::path(other).filename().string());
    Press("OK");
    EXPECT_EQ(DrawnListings(), Texts{"Fir St"});

    // A link that corrects page numbers alone does not need the layer's table to be edited.
    desk_.Dialogs().messages.clear();
    desk_.UseBook(kBook, kSheets);
    Stored()->SetItem("LinkToMapSeries", true);
    Stored()->SetItem("MapSeriesSectionKey", std::string("maps"));
    Stored()->SetItem("MapSeriesTemplateKey", std::string("sheet"));
    Stored()->SetItem("MapSeriesFrameName", std::string("Main map"));
    std::filesystem::remove(desk_.Folder() + "/sheets.dbf");
    OpenSheet();
    EXPECT_EQ(Titles(), Texts{});
    Click("chkLinkToMapSeriesFrame");
    Press("OK");
    EXPECT_EQ(Titles(), Texts{});
    EXPECT_EQ(DrawnListings(), Texts{"Fir St"});
}

TEST_F(Stories, ATableWithoutPageIsRefused) {
    desk_.ListingTable({});
    Open(desk_.ListingTable(kStreets));
    support::DbfBuilder({{"Listing", 'C', 10}}).Row({"x"}).Write(desk_.Folder() + "/bare.dbf");
    const std::string before = Dump(*Working());
    PickDatabase("bare.dbf");
    EXPECT_EQ(Titles(), Texts{"Invalid Listing Database!"});
    EXPECT_EQ(desk_.Dialogs().messages.back().text,
              "Selected dBase file does not contain required \"Page\" field!");
    EXPECT_EQ(Dump(*Working()), before);
    EXPECT_FALSE(Page().IsPageDirty());
    support::WhenModal([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    Click("cmdSetNewFileName");
    EXPECT_FALSE(Page().IsPageDirty());
}

// Ink in a preview, in pixels.
int Ink(QWidget& preview) {
    const QImage picture = preview.grab().toImage();
    int ink = 0;
    for (int y = 3; y < picture.height() - 3; ++y)
        for (int x = 3; x < picture.width() - 3; ++x)
            if (qGray(picture.pixel(x, y)) < 100) ++ink;
    return ink;
}

TEST_F(Stories, SymbolsAreEditedInTheHostsDialog) {
    Open(desk_.ListingTable(kStreets));
    Reveal("picColumnFont");
    EXPECT_EQ(Ink(Control("picColumnFont")), 0) << "a symbol without a sample text";
    const std::string before = Dump(*Working());
    support::WhenModal([](QWidget& dialog) {
        support::Part<QDoubleSpinBox>(dialog, "size").setValue(30);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    Click("cmdColumnFont");
    EXPECT_EQ(Dump(*Working()), before);
    EXPECT_FALSE(Page().IsPageDirty());

    support::WhenModal([](QWidget& dialog) {
        support::Part<QDoubleSpinBox>(dialog, "size").setValue(14);
        support::Part<QCheckBox>(dialog, "bold").click();
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    Click("cmdColumnFont");
    const auto symbol = host::As<host::IHostTextSymbol>(
        std::get<host::Ref<host::IHostObject>>(ColumnValue("Listing", "ColumnFontSymbol")));
    EXPECT_EQ(symbol->Text(), "Liberation Sans  14");
    EXPECT_EQ(symbol->Size(), 14);
    EXPECT_TRUE(symbol->Font()->Bold());
    EXPECT_GT(Ink(Control("picColumnFont")), 100);
    Press("OK");
    const auto row = TestDesk::Members(*element_, "ROWGROUP").front();
    const auto cell =
        host::As<host::IHostGroupElement>(dynamic_cast<host::IHostGroupElement&>(*row).Item(0));
    EXPECT_EQ(host::As<host::IHostTextElement>(cell->Item(1))->Symbol()->Size(), 14);
}

TEST_F(Stories, ThePageGoesAndComesBack) {
    Open(desk_.ListingTable(kStreets));
    Type("txtGroupSpacing", "0.25");
    const std::string working = Dump(*Working());
    Page().Hide();
    EXPECT_FALSE(Form().IsFilled());
    Control<QLineEdit>("txtGroupSpacing").setText("7");
    EXPECT_EQ(Dump(*Working()), working) << "an empty form takes no edits over";
    Page().Show();
    EXPECT_EQ(Control<QLineEdit>("txtGroupSpacing").text(), "0.25");
    EXPECT_TRUE(Page().IsPageDirty());
    Page().Deactivate();
    EXPECT_EQ(Page().Title(), "Gazetteer");
}

}  // namespace
}  // namespace page_test
