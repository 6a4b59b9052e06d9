#include <gtest/gtest.h>

#include "model/ColumnList.h"
#include "model/Edit.h"
#include "model/GeneralFunctions.h"
#include "support/SmallHost.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

using support::SmallHost;

class Lifecycle : public ::testing::Test {
protected:
    SmallHost::Group Gazetteer() { return small.NewGazetteer(table, 4.5, 3); }
    bool HaveSaved() {
        return std::get<bool>(small.Properties(element)->Item("HaveSavedListings"));
    }
    SmallHost small;
    std::string table = small.ListingTable({{"Abbey Road", "4"}, {"Zion Street", "9"}});
    SmallHost::Group element = Gazetteer();
    CVNGazetteerManager manager{small.HostRef()};
};

TEST_F(Lifecycle, TextsOfOperationsOutOfPlace) {
    using M = CVNGazetteerManager;
    const char* const none = "Index Element has not been set.";
    const char* const oneWord = "IndexElement has not been set.";
    const char* const bare = "IndexElement properties have not been set.";
    const char* const range = "Page number out of range.";
    const struct {
        const char* operation;
        void (*call)(M&);
        const char *unbound, *notDrawable, *outOfRange;  // Empty where the operation works.
    } cases[] = {
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
    small.Store(broken, {{"IndexDatabaseFile", ""}});
    for (const auto& c : cases) {
        const auto expectShown = [&](const char* cause) {
            small.Dialogs().messages.clear();
            c.call(manager);
            EXPECT_EQ(small.Dialogs().LastCause(), cause) << c.operation;
        };
        expectShown(c.unbound);
        manager.SetIndexElement(broken);
        expectShown(c.notDrawable);
        manager.SetIndexElement(element);
        expectShown(c.outOfRange);
        manager.Reset();
        expectShown(c.unbound);
    }
}

TEST_F(Lifecycle, ElementWithoutPropertiesLeavesTheBinding) {
    manager.SetIndexElement(element);
    manager.SetIndexElement(small.Host().NewGroupElement());
    EXPECT_EQ(small.Dialogs().LastCause(), "Index element no longer has series properties.");
    EXPECT_EQ(std::get<std::int32_t>(manager.PageCount()), 1);
}

TEST_F(Lifecycle, ResultsAreStoredOnceAndReloadedByReference) {
    manager.SetIndexElement(element);
    EXPECT_TRUE(manager.HasRun());
    EXPECT_TRUE(HaveSaved());
    small.Tables().Put(table, small.Tables().OpenTable(small.ListingTable({{"Changed", "1"}})));
    CVNGazetteerManager second(small.HostRef());
    second.SetIndexElement(element);
    EXPECT_FALSE(second.HasRun());
    EXPECT_EQ(second.Working().listings, manager.Working().listings);
    EXPECT_EQ(second.FirstListing(1), " Abbey Road");
    EXPECT_EQ(std::get<std::string>(second.PageName(1)), " Abbey Road -  Zion Street");

    // Auto refresh wins over stored results and stores none of its own.
    small.Store(element, {{"AutoRefreshListings", true}});
    second.SetIndexElement(element);
    EXPECT_EQ(second.FirstListing(1), " Changed");
    const auto stored = SmallHost::SetIn(*small.Properties(element), "PageFirstListings");
    EXPECT_EQ(std::get<std::string>(stored->Item("1")), " Abbey Road");

    // Stored results do not make up for a database that is gone.
    small.Store(element, {{"AutoRefreshListings", false}});
    small.Tables().Remove(table);
    second.SetIndexElement(element);
    EXPECT_FALSE(second.CanDraw());
    EXPECT_EQ(small.Dialogs().LastCause(), "");
}

TEST_F(Lifecycle, EmptyDatabaseIsNoFailure) {
    element = small.NewGazetteer(small.ListingTable({}), 4.5, 3);
    EXPECT_TRUE(manager.CanDrawIndex(element));
    small.Progress().clear();
    manager.SetIndexElement(element);
    EXPECT_FALSE(manager.CanDraw());
    EXPECT_FALSE(HaveSaved());
    EXPECT_EQ(small.Dialogs().LastCause(), "");
    EXPECT_TRUE(small.Progress().empty());
}

TEST_F(Lifecycle, FailedRunStoresNothing) {
    small.Store(element, {{"Listing.MarginLeft", 1.99}});
    manager.SetIndexElement(element);
    EXPECT_EQ(small.Dialogs().messages.size(), 1U);
    EXPECT_EQ(small.Dialogs().LastCause(), "Column width is set too narrow for selected Font!");
    EXPECT_EQ(small.Dialogs().LastFact("column"), "Listing");
    EXPECT_EQ(small.Dialogs().LastFact("text"), "Listing");
    EXPECT_TRUE(manager.CanDraw());
    EXPECT_FALSE(HaveSaved());
    EXPECT_EQ(std::get<std::int32_t>(manager.PageCount()), 0);
    manager.SetIndexToPageNumber(1);
    EXPECT_EQ(small.Dialogs().LastCause(), "Page number out of range.");
    EXPECT_EQ(manager.FirstListing(0), "");
    EXPECT_EQ(small.Dialogs().messages.size(), 3U);
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
    EXPECT_EQ(small.Progress(), told);

    // A sort that fails brings the animation to rest.
    element = Gazetteer();
    SmallHost::SetIn(*small.Properties(element), "ColumnSortOrder")->SetItem("Nowhere", true);
    small.Progress().clear();
    manager.SetIndexElement(element);
    EXPECT_NE(small.Dialogs().LastCause().find("Nowhere"), std::string::npos);
    EXPECT_EQ(std::vector(small.Progress().begin() + 4, small.Progress().end()),
              std::vector(told.begin() + 4, told.begin() + 9));
}

TEST_F(Lifecycle, DefaultPageIsReadAtTheBinding) {
    manager.SetIndexElement(element);
    manager.SetDefaultPageNumber(0);
    EXPECT_EQ(manager.DefaultPage(), 1);
    manager.SetIndexElement(element);
    EXPECT_EQ(manager.DefaultPage(), 0);
    small.Store(element, {{"DefaultPage", 40000}});
    manager.SetIndexElement(element);
    manager.DefaultPage();
    EXPECT_EQ(small.Dialogs().LastCause(), "Overflow");
}

// Of versions that are not known nothing is read that some version lacks.
TEST_F(Lifecycle, VersionsTellWhichKeysAreRead) {
    for (std::int16_t version = 0; version < 5; ++version) {
        element = Gazetteer();
        const bool readsSample = version == 2 || version == 3;
        small.Store(element, {{"Version", version}, {"SamplePage", true}});
        std::vector<std::string> lacking;
        if (version != 3)
            lacking = {"CombineFirstAndLast", "ClearRepeatingText", "AddStartingBreak"};
        if (!readsSample) lacking.emplace_back("SamplePage");
        for (const auto& key : lacking) small.Properties(element)->RemoveItem(key);
        CVNGazetteerManager fresh(small.HostRef());
        fresh.SetIndexElement(element);
        EXPECT_EQ(small.Dialogs().LastCause(), "") << version;
        EXPECT_EQ(fresh.BoundSettings().samplePage, readsSample) << version;
        EXPECT_EQ(fresh.BoundSettings().combineFirstAndLast, version == 3) << version;
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
        const auto properties = small.Properties(element);
        Settings settings;
        ReadSettings(small.Host(), *properties, settings);
        settings.sortColumns = sorts;
        for (const auto& name : names) AddColumn(small.Host(), settings, name, nullptr);
        StoreEdit(small.Host(), settings, true, *properties);
        for (const auto& name : names) small.Store(element, {{name + ".Expression", name}});
        manager.SetIndexElement(element);
        EXPECT_EQ(small.Dialogs().LastCause(), "") << names[0];
        ASSERT_EQ(manager.CanDraw(), *finding == 0) << names[0];
        if (manager.CanDraw())
            EXPECT_TRUE(small.ListingTexts(manager)[0].ends_with('|' + names.back())) << names[0];
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
        const auto properties = small.Properties(element);
        const auto damaged = *inner == 0 ? properties : SmallHost::SetIn(*properties, inner);
        damaged->SetItem(key, "x");
        manager.Reset();
        small.Dialogs().messages.clear();
        manager.CanDrawIndex(element);
        manager.SetIndexElement(element);
        manager.SetIndexToPageNumber(1);
        EXPECT_FALSE(small.Dialogs().messages.empty()) << key;
    }
    manager.AddGazetteerProperties(nullptr, small.Host().NewPropertySet());
    EXPECT_EQ(small.Dialogs().LastCause(), "Error attempting to set gazetteer properties.");
}

// A binding that failed half-way keeps what it read, as its own, and shows no page of another
// element.
TEST_F(Lifecycle, FailedReadingKeepsWhatWasRead) {
    const auto bad = Gazetteer();
    small.Store(bad, {{"Listing.Alignment", "Right"}});
    small.Properties(bad)->RemoveItem("Version");
    manager.SetIndexElement(element);
    manager.SetIndexElement(bad);
    manager.SetIndexToPageNumber(1);
    EXPECT_TRUE(SmallHost::Members(*bad, "ROWGROUP").empty());
    const auto symbolOf = [](const host::IHostPropertySet& column) {
        return std::get<host::Ref<host::IHostObject>>(column.Item("ColumnFontSymbol"));
    };
    const auto stored = symbolOf(*small.Column(bad, "Listing"));
    EXPECT_EQ(host::As<host::IHostTextSymbol>(stored)->HorizontalPlacement(), 0);
    const auto read = SmallHost::SetIn(*manager.BoundSettings().columnsProperties, "Listing");
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
    element = small.Host().NewGroupElement();
    auto container = small.Host().NewPropertySet();
    container->SetItem("Other", "kept");
    host::As<host::IHostCustomProperty>(element)->SetCustomProperty(SmallHost::Object(container));
    EXPECT_FALSE(HasGazetteerProperties(small.Host(), element));
    EXPECT_TRUE(
        SetGazetteerProperties(small.Host(), element, NewGazetteerProperties(small.Host())));
    EXPECT_TRUE(HasGazetteerProperties(small.Host(), element));
    EXPECT_EQ(std::get<std::string>(container->Item("Other")), "kept");
    DeleteKeyProperties(small.Host(), element);
    EXPECT_FALSE(HasGazetteerProperties(small.Host(), element));
    EXPECT_TRUE(HasCorvaneProperties(element));
    container->SetItem("CorvaneProperties", SmallHost::Object(std::make_shared<StrictSet>()));
    DeleteKeyProperties(small.Host(), element);
    EXPECT_EQ(small.Dialogs().LastCause(), "");
    GetGazetteerProperties(small.Host(), element);
    EXPECT_EQ(small.Dialogs().LastCause(), "Group Element has no gazetteer properties.");
}

}  // namespace
}  // namespace gazetteer
