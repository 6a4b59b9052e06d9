#include <gtest/gtest.h>

#include "model/EditRules.h"
#include "model/GeneralFunctions.h"
#include "support/SmallHost.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

class Lifecycle : public ::testing::Test, protected support::SmallHost {
protected:
    Group Gazetteer() { return NewGazetteer(table, 4.5, 3); }
    bool HaveSaved() { return std::get<bool>(Properties(element)->Item("HaveSavedListings")); }
    std::string table = ListingTable({{"Abbey Road", "4"}, {"Zion Street", "9"}});
    Group element = Gazetteer();
    CVNGazetteerManager manager{HostRef()};
};

TEST_F(Lifecycle, TextsOfOperationsOutOfPlace) {
    using M = CVNGazetteerManager;
    const char* const none = "Index Element has not been set.";
    const char* const oneWord = "IndexElement has not been set.";
    const char* const bare = "IndexElement properties have not been set.";
    const char* const range = "Page number out of range.";
    // The texts unbound, not drawable and out of range; empty where the operation works.
    const std::tuple<const char*, void (*)(M&), const char*, const char*, const char*> cases[] = {
        {"Draw 2", [](M& m) { m.SetIndexToPageNumber(2); }, oneWord, bare, range},
        {"Draw 0", [](M& m) { m.SetIndexToPageNumber(0); }, oneWord, bare, range},
        {"DraftMode", [](M& m) { m.DraftMode(); }, oneWord, "", ""},
        {"DefaultPage", [](M& m) { m.DefaultPage(); }, none,
         "Index Element properties have not been set.", ""},
        {"SetDefaultPageNumber", [](M& m) { m.SetDefaultPageNumber(2); },
         "MapFrame has not been set.", range, range},
        {"PageCount", [](M& m) { m.PageCount(); }, none, "", ""},
        {"FirstListing", [](M& m) { m.FirstListing(2); }, none, bare, range},
        {"LastListing", [](M& m) { m.LastListing(-1); }, none, bare, range},
        {"PageName", [](M& m) { m.PageName(2); }, none, bare, range},
    };
    const auto broken = Gazetteer();
    Store(broken, {{"IndexDatabaseFile", ""}});
    for (const auto& [operation, call, unbound, notDrawable, outOfRange] : cases) {
        const auto expectShown = [&, name = operation, act = call](const char* cause) {
            Dialogs().messages.clear();
            act(manager);
            EXPECT_EQ(Dialogs().LastCause(), cause) << name;
        };
        expectShown(unbound);
        manager.SetIndexElement(broken);
        expectShown(notDrawable);
        manager.SetIndexElement(element);
        expectShown(outOfRange);
        manager.Reset();
        expectShown(unbound);
    }
}

TEST_F(Lifecycle, ElementWithoutPropertiesLeavesTheBinding) {
    manager.SetIndexElement(element);
    manager.SetIndexElement(Host().NewGroupElement());
    EXPECT_EQ(Dialogs().LastCause(), "Index element no longer has series properties.");
    EXPECT_EQ(std::get<std::int32_t>(manager.PageCount()), 1);
}

TEST_F(Lifecycle, ResultsAreStoredOnceAndReloadedByReference) {
    manager.SetIndexElement(element);
    EXPECT_TRUE(manager.HasRun());
    EXPECT_TRUE(HaveSaved());
    Tables().Put(table, Tables().OpenTable(ListingTable({{"Changed", "1"}})));
    CVNGazetteerManager second(HostRef());
    second.SetIndexElement(element);
    EXPECT_FALSE(second.HasRun());
    EXPECT_EQ(second.Working().listings, manager.Working().listings);
    EXPECT_EQ(second.FirstListing(1), " Abbey Road");
    EXPECT_EQ(std::get<std::string>(second.PageName(1)), " Abbey Road -  Zion Street");

    // Auto refresh wins over stored results and stores none of its own.
    Store(element, {{"AutoRefreshListings", true}});
    second.SetIndexElement(element);
    EXPECT_EQ(second.FirstListing(1), " Changed");
    const auto stored = SetIn(*Properties(element), "PageFirstListings");
    EXPECT_EQ(std::get<std::string>(stored->Item("1")), " Abbey Road");

    // Stored results do not make up for a database that is gone.
    Store(element, {{"AutoRefreshListings", false}});
    Tables().Remove(table);
    second.SetIndexElement(element);
    EXPECT_FALSE(second.CanDraw());
    EXPECT_EQ(Dialogs().LastCause(), "");
}

TEST_F(Lifecycle, EmptyDatabaseIsNoFailure) {
    element = NewGazetteer(ListingTable({}), 4.5, 3);
    EXPECT_TRUE(manager.CanDrawIndex(element));
    Progress().clear();
    manager.SetIndexElement(element);
    EXPECT_FALSE(manager.CanDraw());
    EXPECT_FALSE(HaveSaved());
    EXPECT_EQ(Dialogs().LastCause(), "");
    EXPECT_TRUE(Progress().empty());
}

TEST_F(Lifecycle, FailedRunStoresNothing) {
    Store(element, {{"Listing.MarginLeft", 1.99}});
    manager.SetIndexElement(element);
    EXPECT_EQ(Dialogs().messages.size(), 1U);
    EXPECT_EQ(Dialogs().LastCause(), "Column width is set too narrow for selected Font!");
    EXPECT_EQ(Dialogs().LastFact("column"), "Listing");
    EXPECT_EQ(Dialogs().LastFact("text"), "Listing");
    EXPECT_TRUE(manager.CanDraw());
    EXPECT_FALSE(HaveSaved());
    EXPECT_EQ(std::get<std::int32_t>(manager.PageCount()), 0);
    manager.SetIndexToPageNumber(1);
    EXPECT_EQ(Dialogs().LastCause(), "Page number out of range.");
    EXPECT_EQ(manager.FirstListing(0), "");
    EXPECT_EQ(Dialogs().messages.size(), 3U);
}

TEST_F(Lifecycle, StatusTextsOfARunAndADraw) {
    manager.SetIndexElement(element);
    manager.SetIndexToPageNumber(1);
    const auto told = Split(
        "Generating column text for listing: 0|Generating column text for listing: 1|"
        "Generating column text for listing: 2|Generating column text for listing: 3|"
        "Sorting Listings (Please be patient. This can take a "
        "while)...|(show)|(play)|(hide)|(stop)|"
        "Removing Duplicates, Combining and Storing listings...1|"
        "Removing Duplicates, Combining and Storing listings...2|"
        "Laying out each page: 1: Placing graphics on page: 0|"
        "Laying out each page: 1: Placing graphics on page: 1|"
        "Finding first and last listing on each page: 1||||"
        "Page 1: Placing listings on layout: 0|Page 1: Placing listings on layout: 1|",
        '|');
    EXPECT_EQ(Progress(), told);

    // A sort that fails brings the animation to rest.
    element = Gazetteer();
    SetIn(*Properties(element), "ColumnSortOrder")->SetItem("Nowhere", true);
    Progress().clear();
    manager.SetIndexElement(element);
    EXPECT_NE(Dialogs().LastCause().find("Nowhere"), std::string::npos);
    EXPECT_EQ(std::vector(Progress().begin() + 4, Progress().end()),
              std::vector(told.begin() + 4, told.begin() + 9));
}

TEST_F(Lifecycle, DefaultPageIsReadAtTheBinding) {
    manager.SetIndexElement(element);
    manager.SetDefaultPageNumber(0);
    EXPECT_EQ(manager.DefaultPage(), 1);
    manager.SetIndexElement(element);
    EXPECT_EQ(manager.DefaultPage(), 0);
    Store(element, {{"DefaultPage", 40000}});
    manager.SetIndexElement(element);
    manager.DefaultPage();
    EXPECT_EQ(Dialogs().LastCause(), "Overflow");
}

// Of versions that are not known nothing is read that some version lacks. An edit brings each to
// the present one.
TEST_F(Lifecycle, VersionsTellWhichKeysAreRead) {
    for (std::int16_t version = 0; version < 5; ++version) {
        element = Gazetteer();
        const bool readsSample = version == 2 || version == 3;
        Store(element, {{"Version", version}, {"SamplePage", true}});
        std::vector<std::string> lacking;
        if (version != 3)
            lacking = {"CombineFirstAndLast", "ClearRepeatingText", "AddStartingBreak"};
        if (!readsSample) lacking.emplace_back("SamplePage");
        for (const auto& key : lacking) Properties(element)->RemoveItem(key);
        CVNGazetteerManager fresh(HostRef());
        fresh.SetIndexElement(element);
        EXPECT_EQ(Dialogs().LastCause(), "") << version;
        EXPECT_EQ(fresh.BoundSettings().samplePage, readsSample) << version;
        EXPECT_EQ(fresh.BoundSettings().combineFirstAndLast, version == 3) << version;
        Settings edited = fresh.BoundSettings();
        StoreEdit(Host(), edited, true, *Properties(element));
        EXPECT_EQ(Properties(element)->Item("CombineFirstAndLast"), host::Variant(version == 3));
        EXPECT_EQ(Properties(element)->Item("Version"), host::Variant(std::int16_t{3}));
    }
}

TEST_F(Lifecycle, NamesThatTheIndexTableCannotTakeAreFound) {
    const std::tuple<std::vector<std::string>, bool, const char*> cases[] = {
        {{"OID"}, false, "cannot be named \"OID\""},
        {{"oid"}, false, "cannot be named \"oid\""},
        {{"a,b"}, true, "column named \"a,b\""},
        {{"a,b"}, false, ""},
        {{"LINE", "line"}, true, ""},
    };
    for (const auto& [names, sorts, finding] : cases) {
        element = Gazetteer();
        const auto properties = Properties(element);
        Settings settings;
        ReadSettings(Host(), *properties, settings);
        settings.sortColumns = sorts;
        for (const auto& name : names) AddColumn(Host(), settings, name, nullptr);
        StoreEdit(Host(), settings, true, *properties);
        for (const auto& name : names) Store(element, {{name + ".Expression", name}});
        manager.SetIndexElement(element);
        EXPECT_EQ(Dialogs().LastCause(), "") << names[0];
        ASSERT_EQ(manager.CanDraw(), *finding == 0) << names[0];
        if (manager.CanDraw())
            EXPECT_TRUE(ListingTexts(manager)[0].ends_with('|' + names.back())) << names[0];
        else
            EXPECT_NE(manager.LastFindings().at(0).find(finding), std::string::npos);
    }
}

// Whatever a damaged document holds ends in the dialog.
TEST_F(Lifecycle, StoredValuesOfTheWrongKindAreFailures) {
    for (const auto& [inner, key] : {std::pair{"", "ColumnNames"},
                                     {"", "ColumnsProperties"},
                                     {"", "Version"},
                                     {"PageGroups", "1"},
                                     {"SavedListings", "Listing"}}) {
        element = Gazetteer();
        manager.SetIndexElement(element);
        const auto properties = Properties(element);
        const auto damaged = *inner == 0 ? properties : SetIn(*properties, inner);
        damaged->SetItem(key, "x");
        manager.Reset();
        Dialogs().messages.clear();
        manager.CanDrawIndex(element);
        manager.SetIndexElement(element);
        manager.SetIndexToPageNumber(1);
        EXPECT_FALSE(Dialogs().messages.empty()) << key;
    }
    manager.AddGazetteerProperties(nullptr, Host().NewPropertySet());
    EXPECT_EQ(Dialogs().LastCause(), "Error attempting to set gazetteer properties.");
}

// A binding that failed half-way keeps what it read, as its own, and shows no page of another
// element.
TEST_F(Lifecycle, FailedReadingKeepsWhatWasRead) {
    const auto bad = Gazetteer();
    Store(bad, {{"Listing.Alignment", "Right"}});
    Properties(bad)->RemoveItem("Version");
    manager.SetIndexElement(element);
    manager.SetIndexElement(bad);
    manager.SetIndexToPageNumber(1);
    EXPECT_TRUE(Members(*bad, "ROWGROUP").empty());
    const auto symbolOf = [](const host::IHostPropertySet& column) {
        return std::get<host::Ref<host::IHostObject>>(column.Item("ColumnFontSymbol"));
    };
    const auto stored = symbolOf(*Column(bad, "Listing"));
    EXPECT_EQ(host::As<host::IHostTextSymbol>(stored)->HorizontalPlacement(), 0);
    const auto read = SetIn(*manager.BoundSettings().columnsProperties, "Listing");
    EXPECT_EQ(read->Item("Alignment"), host::Variant("Right"));
    EXPECT_NE(symbolOf(*read), stored);
}

// As a host may have it, a name that is not there cannot be taken out.
struct StrictSet : texthost::PropertySet {
    void RemoveItem(const std::string& name) override {
        Item(name);
        PropertySet::RemoveItem(name);
    }
};

TEST_F(Lifecycle, PropertiesHangBesideThoseOfOthers) {
    element = Host().NewGroupElement();
    auto container = Host().NewPropertySet();
    container->SetItem("Other", "kept");
    host::As<host::IHostCustomProperty>(element)->SetCustomProperty(Object(container));
    EXPECT_FALSE(HasGazetteerProperties(Host(), element));
    EXPECT_TRUE(SetGazetteerProperties(Host(), element, NewGazetteerProperties(Host())));
    EXPECT_TRUE(HasGazetteerProperties(Host(), element));
    EXPECT_EQ(std::get<std::string>(container->Item("Other")), "kept");
    DeleteKeyProperties(Host(), element);
    EXPECT_FALSE(HasGazetteerProperties(Host(), element));
    EXPECT_TRUE(HasCorvaneProperties(element));
    container->SetItem("CorvaneProperties", Object(std::make_shared<StrictSet>()));
    DeleteKeyProperties(Host(), element);
    EXPECT_EQ(Dialogs().LastCause(), "");
    GetGazetteerProperties(Host(), element);
    EXPECT_EQ(Dialogs().LastCause(), "Group Element has no gazetteer properties.");
}

}  // namespace
}  // namespace gazetteer
