// Single controls: filling changes nothing, and each edit stores what it should.

#include <QLabel>
#include <array>
#include <tuple>

#include "desk/window/ObjectSet.h"
#include "manager/CVNGazetteerManager.h"
#include "model/Keys.h"
#include "page/DatabasePath.h"
#include "page/PageStory.h"

namespace page_test {
namespace {

class Edits : public PageStory {
public:
    Edits() { Open(8); }
    /// What the form says right below a box.
    QString SentenceBelow(const QWidget& box) const {
        const QPoint below = box.mapTo(&Form(), QPoint(box.width() / 2, box.height() + 8));
        for (const auto* label : Form().findChildren<QLabel*>())
            if (label->isVisible() && label->text().startsWith("Type") &&
                QRect(label->mapTo(&Form(), QPoint()), label->size()).contains(below))
                return label->text();
        return {};
    }
};

// Every value is filled from a set in which all of them differ from the defaults and from what the
// controls show at first.
TEST_F(Edits, OpeningChangesNothing) {
    gazetteer::CVNGazetteerManager(desk_.HostRef()).SetIndexElement(element_);
    ASSERT_EQ(Stored()->Item("HaveSavedListings"), host::Variant(true));
    const auto change = [](host::IHostPropertySet& set, const auto& keys) {
        for (const auto& key : keys) {
            if (key.kind == gazetteer::ValueKind::Boolean && key.writer == gazetteer::Writer::User)
                set.SetItem(key.name, !std::get<bool>(set.Item(key.name)));
            if (key.kind == gazetteer::ValueKind::Double) set.SetItem(key.name, 0.1 + 0.2);
        }
    };
    change(*Stored(), gazetteer::PropertyKeys());
    Stored()->SetItem("LinkToMapSeries", false);
    Stored()->SetItem("DefaultPage", std::int32_t{7});
    Stored()->SetItem("CombineDelimeter", std::string(" \u00A0; "));
    for (const char* name : {"Listing", "Page"}) {
        const auto column = desk_.Column(element_, name);
        change(*column, gazetteer::ColumnKeys());
        column->SetItem("FromDatabase", true);
        column->SetItem("Alignment", std::string("Justify"));
        column->SetItem("TitleAlignment", std::string("Right"));
        column->SetItem("Title", std::string(" two\nlines\u00A0"));
        column->SetItem("Expression", std::string("[Listing]\u00A0\r\n$$DOTS\u2029"));
    }
    const std::string stored = Dump(*Stored());
    OpenSheet();
    Page().Hide();
    Control<QLineEdit>("txtGroupSpacing").setText("7");
    EXPECT_EQ(Dump(*Working()), stored) << "an empty form takes no edits over";
    Page().Show();
    EXPECT_EQ(Dump(*Working()), stored);
    EXPECT_FALSE(Page().IsPageDirty());

    // What was filled is what is read: saving an untouched column changes no value of it.
    const auto columns = Dump(*TestDesk::SetIn(*Working(), "ColumnsProperties"));
    SelectRow("lstListingColumns", 1);
    EXPECT_EQ(Dump(*TestDesk::SetIn(*Working(), "ColumnsProperties")), columns);
    EXPECT_EQ(Value("RepeatSpacing"), host::Variant(0.1 + 0.2));
    EXPECT_EQ(Value("HaveSavedListings"), host::Variant(false)) << "any edit drops the listings";
    EXPECT_EQ(TestDesk::SetIn(*Working(), "SavedListings")->Count(), 0);
}

// Every check box and option that can be clicked, with the key that it turns over.
TEST_F(Edits, AClickTurnsItsKeyOver) {
    const std::pair<const char*, const char*> clicks[] = {
        {"chkLinkToMapSeriesFrame", "LinkToMapSeries"},
        {"chkSortIndex", "SortColumns"},
        {"OptSortOrder_1", "SortAscending"},
        {"OptSortOrder_0", "SortAscending"},
        {"chkMultipleColumnGroups", "RepeatColumns"},
        {"chkCombineListings", "CombineListings"},
        {"optCombineListings_1", "CombineWithNewLine"},
        {"ChkCombineFirstAndLast", "CombineFirstAndLast"},
        {"ChkClearRepeatingText", "ClearRepeatingText"},
        {"ChkAddStartingBreak", "AddStartingBreak"},
        {"chkSamplePage", "SamplePage"},
        {"chkColumnBackground", "ColorBackground"},
        {"chkAlternateBackground", "AlternateBackground"},
        {"chkBreakColumn", "BreakColumn"},
        {"chkBreakHeader", "BreakHeading"},
        {"chkDisplayTitle", "ShowTitle"}};
    const std::string page = Dump(*desk_.Column(element_, "Page"));
    for (const auto& [control, key] : clicks) {
        const bool before = std::get<bool>(Held(key));
        Click(control);
        EXPECT_EQ(Held(key), host::Variant(!before)) << control;
    }
    EXPECT_EQ(Held("DisplayLeftToRight"), host::Variant(true)) << "options of another pair";
    EXPECT_TRUE(Page().IsPageDirty());
    Press(QDialogButtonBox::Apply);
    EXPECT_EQ(Dump(*desk_.Column(element_, "Page")), page) << "a column that is not open";
}

// Where a number is asked for and none can be read, the key's default is stored, and the box says
// so.
TEST_F(Edits, WhatIsTypedOrChosenIsStored) {
    const auto length = [](const char* used) {
        return QString(
                   "Type a number such as 0.25, from -1000 to 1000 (inches); until then %1 is "
                   "used.")
            .arg(used);
    };
    const std::tuple<const char*, const char*, const char*, host::Variant, QString> typed[] = {
        {"txtColumnWidth", "ColumnWidth", "1.25", 1.25, ""},
        {"txtColumnWidth", "ColumnWidth", "", 2.0, length("2")},
        {"txtTopMargin", "MarginTop", "-0.5", -0.5, ""},
        {"txtBottomMargin", "MarginBottom", "+3", 3.0, ""},
        {"txtLeftMargin", "MarginLeft", " 2 ", 2.0, ""},
        {"txtRightMargin", "MarginRight", "-1e3", -1000.0, ""},
        {"txtRightMargin", "MarginRight", "-1000.1", 0.05, length("0.05")},
        {"txtBreakSpacing", "BreakSpacing", "0.3", 0.3, ""},
        {"txtBreakSpacing", "BreakSpacing", "$5", 0.1, length("0.1")},
        {"txtGroupSpacing", "RepeatSpacing", "0.4", 0.4, ""},
        {"txtGroupSpacing", "RepeatSpacing", "1.2.3", 0.1, length("0.1")},
        {"txtDefaultPage", "DefaultPage", "2.5", 2, ""},
        {"txtDefaultPage", "DefaultPage", "3.5", 4, ""},
        {"txtDefaultPage", "DefaultPage", "99999999999", 1,
         "Type a page number up to 2147483647; until then page 1 is used."},
        {"txtCombineDelimeter", "CombineDelimeter", " / ", " / ", ""},
        {"txtColumnTitle", "Title", "Stra\u00DFe & <Weg>", "Stra\u00DFe & <Weg>", ""}};
    for (const auto& [control, key, text, stored, wrong] : typed) {
        Type(control, text);
        EXPECT_EQ(Held(key), stored) << control << " \"" << text << '"';
        auto& box = Control<QLineEdit>(control);
        EXPECT_EQ(box.text(), text) << "it keeps what was typed";
        EXPECT_EQ(box.toolTip(), wrong) << control << " \"" << text << '"';
        EXPECT_EQ(SentenceBelow(box), wrong);
        const QFrame* mark = box.findChild<QFrame*>();
        EXPECT_EQ(mark != nullptr && mark->isVisible(), !wrong.isEmpty()) << control;
        if (!wrong.isEmpty()) Type(control, "1");
        EXPECT_EQ(box.toolTip(), "");
    }
    for (const char* choice : {"Justify", "Center", "Right", "Left"})
        for (const auto& [list, key] : {std::pair{"cmbAlignment", "Alignment"},
                                        std::pair{"cmbTitleAlignment", "TitleAlignment"}}) {
            Choose(list, choice);
            EXPECT_EQ(Held(key), host::Variant(choice));
        }
    EXPECT_EQ(Told(), Texts{});
}

// OK leads back to a wrong number once, so that no default takes its place unseen.
TEST_F(Edits, OkStopsAtAWrongNumber) {
    for (const char* next : {"0.25", "wide"}) {
        auto& box = Control<QLineEdit>("txtTopMargin");
        Type("txtTopMargin", "wide");
        Reveal("chkSamplePage");
        Press(QDialogButtonBox::Ok);
        EXPECT_TRUE(box.hasFocus() && box.isVisible());
        EXPECT_EQ(desk_.Column(element_, "Listing")->Item("MarginTop"), host::Variant(0.05));
        if (box.text() != next) Type("txtTopMargin", next);
        Press(QDialogButtonBox::Ok);
        EXPECT_FALSE(box.isVisible());
        EXPECT_EQ(desk_.Column(element_, "Listing")->Item("MarginTop"),
                  host::Variant(box.text() == "wide" ? 0.05 : 0.25));
        OpenSheet();
    }
}

// Other orders of calls than the host's, and objects that are not there, end in a message at most.
TEST_F(Edits, OddCallsDoNoHarm) {
    const auto set = [](std::vector<host::Ref<host::IHostObject>> objects) {
        return std::make_shared<desk::ObjectSet>(std::move(objects));
    };
    auto& page = Page();
    page.Show();
    const auto text = desk_.Host().NewTextElement();
    const auto other = desk_.NewGazetteer(desk_.ListingTable({{"Fir St", "9"}}), 8, 3);
    EXPECT_TRUE(page.Applies(set({text, other})));
    EXPECT_FALSE(page.Applies(set({text})));
    page.SetObjects(set({text, other}));
    Click("chkSortIndex");
    page.Apply();
    EXPECT_EQ(Stored()->Item("SortColumns"), host::Variant(true))
        << "the page had moved to another element";
    EXPECT_EQ(desk_.Properties(other)->Item("SortColumns"), host::Variant(false));
    EXPECT_EQ(Told(), Texts{});

    EXPECT_FALSE(page.Applies(nullptr));
    page.SetObjects(nullptr);
    other->SetGeometry(nullptr);
    page.Hide();
    page.Show();
    page.Apply();
    page.Deactivate();
    page.Deactivate();
    page.Hide();
    EXPECT_EQ(Told(), Texts(4, "Unexpected Program Error"));

    gazetteer::GazetteerPropertyPage empty(desk_.HostRef());
    empty.Apply();
    empty.SetObjects(set({text}));
    empty.Show();
    empty.Hide();
    EXPECT_EQ(Told(), Texts(3, "Unexpected Program Error"));
}

TEST(DatabasePath, FollowsTheKindOfObject) {
    const std::array<const char*, 4> cases[] = {
        {"folder", "/maps", "roads.dbf", "/maps\\roads.dbf"},
        {"FOLDER", "C:\\maps", "roads.DBF", "C:\\maps\\roads.DBF.dbf"},
        {"Folder Connection", "D:\\", "roads", "D:\\roads.dbf"},
        {"Folder Connection", "\\\\server\\maps", "roads", "\\\\server\\maps\\roads.dbf"},
        {"dBASE Table", "/maps/roads.dbf", "ignored", "/maps/roads.dbf"}};
    for (const auto& [category, fullName, name, path] : cases)
        EXPECT_EQ(gazetteer::DatabasePath(category, fullName, name), path) << category;
}

}  // namespace
}  // namespace page_test
