// Single controls: filling changes nothing, and each edit stores what it should.

#include "desk/objects/Elements.h"
#include "desk/window/ObjectSet.h"
#include "manager/CVNGazetteerManager.h"
#include "model/GeneralFunctions.h"
#include "model/Keys.h"
#include "page/DatabasePath.h"
#include "page/PageStory.h"

namespace page_test {
namespace {

class Edits : public PageStory {
public:
    Edits() { Open(8); }
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
    Page().Show();
    EXPECT_EQ(Dump(*Working()), stored);
    EXPECT_FALSE(Page().IsPageDirty());

    // What was filled is what is read: saving an untouched column changes no value of it.
    const auto columns = Dump(*TestDesk::SetIn(*Working(), "ColumnsProperties"));
    SelectRow("lstListingColumns", 1);
    EXPECT_EQ(Dump(*TestDesk::SetIn(*Working(), "ColumnsProperties")), columns);
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

TEST_F(Edits, TypedNumbersAreStoredOrTheirDefaults) {
    const std::pair<const char*, std::optional<double>> texts[] = {
        {"1.25", 1.25},  {"-0.5", -0.5}, {"+3", 3},     {" 2 ", 2},
        {"-1e3", -1000}, {"abc", {}},    {"1.2.3", {}}, {"", {}},
        {"$5", {}},      {"1e999", {}},  {"1e300", {}}, {"-1000.1", {}}};
    const struct {
        const char* control;
        const char* key;
        double byDefault;
    } boxes[] = {
        {"txtColumnWidth", "ColumnWidth", 2.0},    {"txtTopMargin", "MarginTop", 0.05},
        {"txtBottomMargin", "MarginBottom", 0.05}, {"txtLeftMargin", "MarginLeft", 0.05},
        {"txtRightMargin", "MarginRight", 0.05},   {"txtBreakSpacing", "BreakSpacing", 0.1},
        {"txtGroupSpacing", "RepeatSpacing", 0.1}};
    for (const auto& box : boxes)
        for (const auto& [text, stored] : texts) {
            Type(box.control, text);
            EXPECT_EQ(Held(box.key), host::Variant(stored.value_or(box.byDefault)))
                << box.control << " \"" << text << '"';
            EXPECT_EQ(Control<QLineEdit>(box.control).text(), text) << "it keeps what was typed";
        }
    const std::pair<const char*, std::int32_t> pages[] = {
        {"3", 3}, {"2.5", 2}, {"3.5", 4}, {"", 1}, {"x", 1}, {"99999999999", 1}, {"-2", -2}};
    for (const auto& [text, stored] : pages) {
        Type("txtDefaultPage", text);
        EXPECT_EQ(Value("DefaultPage"), host::Variant(stored)) << text;
    }
    EXPECT_EQ(Told(), Texts{});
}

TEST_F(Edits, TextsAndChoicesAreStored) {
    Type("txtCombineDelimeter", " / ");
    EXPECT_EQ(Held("CombineDelimeter"), host::Variant(" / "));
    Type("txtColumnTitle", "Straße & <Weg>");
    EXPECT_EQ(Held("Title"), host::Variant("Straße & <Weg>"));
    for (const char* choice : {"Justify", "Center", "Right", "Left"}) {
        Choose("cmbAlignment", choice);
        EXPECT_EQ(Held("Alignment"), host::Variant(choice));
        Choose("cmbTitleAlignment", choice);
        EXPECT_EQ(Held("TitleAlignment"), host::Variant(choice));
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

// Options that a set does not tell of are off in an old one, and else what they are by default.
TEST_F(Edits, ASetOfAnyVersionOpens) {
    using gazetteer::Settings;
    const std::pair<const char*, bool Settings::*> newer[] = {
        {"SamplePage", &Settings::samplePage},
        {"ClearRepeatingText", &Settings::clearRepeatingText},
        {"AddStartingBreak", &Settings::addStartingBreak},
        {"CombineFirstAndLast", &Settings::combineFirstAndLast}};
    desk_.Column(element_, "Listing")->RemoveItem("Version");
    for (const auto& [key, option] : newer) Stored()->RemoveItem(key);
    for (const auto version : {std::int16_t{1}, std::int16_t{9}}) {
        Stored()->SetItem("Version", version);
        OpenSheet();
        EXPECT_EQ(Told(), Texts{});
        Click("chkSortIndex");
        EXPECT_EQ(Value("Version"), host::Variant(std::int16_t{3}));
        for (const auto& [key, option] : newer)
            EXPECT_EQ(Value(key), host::Variant(version == 9 && Settings().*option)) << key;
    }
}

class GroupWithoutFrame final : public desk::ElementBase<host::IHostGroupElement> {
public:
    host::Ref<host::IHostGeometry> Geometry() const override { return nullptr; }
    void SetGeometry(const host::Ref<host::IHostGeometry>&) override {}
    void MeasureBounds(const host::Ref<host::IHostDisplay>&,
                       const host::Ref<host::IHostEnvelope>&) override {}
    std::int32_t Count() const override { return 0; }
    host::Ref<host::IHostElement> Item(std::int32_t) const override { return nullptr; }
    void Add(const host::Ref<host::IHostElement>&) override {}
    void Remove(const host::Ref<host::IHostElement>&) override {}
};

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

    const auto group = std::make_shared<GroupWithoutFrame>();
    gazetteer::SetGazetteerProperties(desk_.Host(), group,
                                      gazetteer::NewGazetteerProperties(desk_.Host()));
    const auto before = desk_.Properties(group);
    page.SetObjects(set({group}));
    page.Apply();
    EXPECT_NE(desk_.Properties(group), before) << "it is stored before a frame is needed";
    Told();

    gazetteer::GazetteerPropertyPage empty(desk_.HostRef());
    empty.Apply();
    empty.SetObjects(set({text}));
    empty.Show();
    empty.Hide();
    EXPECT_EQ(Told(), Texts(3, "Unexpected Program Error"));
}

TEST(DatabasePath, FollowsTheKindOfObject) {
    struct Case {
        const char* category;
        const char* fullName;
        const char* name;
        const char* path;
    };
    for (const auto& [category, fullName, name, path] :
         {Case{"Folder", "C:\\maps", "roads", "C:\\maps\\roads.dbf"},
          Case{"folder", "/maps", "roads.dbf", "/maps\\roads.dbf"},
          Case{"FOLDER", "C:\\maps", "roads.DBF", "C:\\maps\\roads.DBF.dbf"},
          Case{"Folder Connection", "D:\\", "roads", "D:\\roads.dbf"},
          Case{"Folder Connection", "\\\\server\\maps", "roads", "\\\\server\\maps\\roads.dbf"},
          Case{"dBASE Table", "/maps/roads.dbf", "ignored", "/maps/roads.dbf"}})
        EXPECT_EQ(gazetteer::DatabasePath(category, fullName, name), path) << category;
}

}  // namespace
}  // namespace page_test
