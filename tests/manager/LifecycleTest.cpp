#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

#include "model/EditRules.h"
#include "model/GeneralFunctions.h"
#include "support/Assignments.h"
#include "support/TestDesk.h"

namespace gazetteer {
namespace {

using support::Store;
using support::TestDesk;

class Lifecycle : public ::testing::Test {
protected:
    TestDesk::Group Gazetteer() { return desk.NewGazetteer(table, 4.5, 3); }
    bool HaveSaved() { return std::get<bool>(desk.Properties(element)->Item("HaveSavedListings")); }
    TestDesk desk;
    std::string table = desk.ListingTable({{"Abbey Road", "4"}, {"Zion Street", "9"}});
    TestDesk::Group element = Gazetteer();
    CVNGazetteerManager manager{desk.HostRef()};
};

TEST_F(Lifecycle, TextsOfOperationsOutOfPlace) {
    struct Case {
        const char* operation;
        void (*call)(CVNGazetteerManager&);
        const char *unbound, *notDrawable, *outOfRange;  // Empty where the operation works.
    };
    using Manager = CVNGazetteerManager;
    const char* const indexElement = "Index Element has not been set.";
    const char* const oneWord = "IndexElement has not been set.";
    const char* const properties = "IndexElement properties have not been set.";
    const char* const range = "Page number out of range.";
    const Case cases[] = {
        {"SetIndexToPageNumber", [](Manager& m) { m.SetIndexToPageNumber(2); }, oneWord, properties,
         range},
        {"SetIndexToPageNumber 0", [](Manager& m) { m.SetIndexToPageNumber(0); }, oneWord,
         properties, range},
        {"DraftMode", [](Manager& m) { m.DraftMode(); }, oneWord, "", ""},
        {"DefaultPage", [](Manager& m) { m.DefaultPage(); }, indexElement,
         "Index Element properties have not been set.", ""},
        {"SetDefaultPageNumber", [](Manager& m) { m.SetDefaultPageNumber(2); },
         "MapFrame has not been set.", range, range},
        {"PageCount", [](Manager& m) { m.PageCount(); }, indexElement, "", ""},
        {"FirstListing", [](Manager& m) { m.FirstListing(2); }, indexElement, properties, range},
        {"LastListing", [](Manager& m) { m.LastListing(-1); }, indexElement, properties, range},
        {"PageName", [](Manager& m) { m.PageName(2); }, indexElement, properties, range},
    };
    const auto shown = [&](const Case& c) {
        desk.Dialogs().messages.clear();
        c.call(manager);
        return desk.Dialogs().LastCause();
    };
    const auto broken = Gazetteer();
    Store(desk, broken, {{"IndexDatabaseFile", ""}});
    for (const Case& c : cases) {
        EXPECT_EQ(shown(c), c.unbound) << c.operation;
        manager.SetIndexElement(broken);
        EXPECT_EQ(shown(c), c.notDrawable) << c.operation;
        manager.SetIndexElement(element);
        EXPECT_EQ(shown(c), c.outOfRange) << c.operation;
        manager.Reset();
        EXPECT_EQ(shown(c), c.unbound) << c.operation;
    }
}

TEST_F(Lifecycle, ElementWithoutPropertiesLeavesTheBinding) {
    manager.SetIndexElement(element);
    manager.SetIndexElement(desk.Host().NewGroupElement());
    EXPECT_EQ(desk.Dialogs().LastCause(), "Index element no longer has series properties.");
    EXPECT_EQ(std::get<std::int32_t>(manager.PageCount()), 1);
}

TEST_F(Lifecycle, ResultsAreStoredOnceAndReloadedByReference) {
    manager.SetIndexElement(element);
    EXPECT_TRUE(manager.HasRun());
    EXPECT_TRUE(HaveSaved());
    desk.ReplaceTable(table, {{"Changed", "1"}});
    CVNGazetteerManager second(desk.HostRef());
    second.SetIndexElement(element);
    EXPECT_FALSE(second.HasRun());
    EXPECT_EQ(second.Working().listings, manager.Working().listings);
    EXPECT_EQ(second.FirstListing(1), " Abbey Road");
    EXPECT_EQ(std::get<std::string>(second.PageName(1)), " Abbey Road -  Zion Street");

    // Auto refresh wins over stored results and stores none of its own.
    Store(desk, element, {{"AutoRefreshListings", true}});
    second.SetIndexElement(element);
    EXPECT_EQ(second.FirstListing(1), " Changed");
    const auto stored = TestDesk::SetIn(*desk.Properties(element), "PageFirstListings");
    EXPECT_EQ(std::get<std::string>(stored->Item("1")), " Abbey Road");

    // Stored results do not make up for a database that is gone.
    Store(desk, element, {{"AutoRefreshListings", false}});
    std::filesystem::remove(table);
    second.SetIndexElement(element);
    EXPECT_FALSE(second.CanDraw());
    EXPECT_EQ(desk.Dialogs().LastCause(), "");
}

TEST_F(Lifecycle, EmptyDatabaseIsNoFailure) {
    element = desk.NewGazetteer(desk.ListingTable({}), 4.5, 3);
    EXPECT_TRUE(manager.CanDrawIndex(element));
    desk.StatusTexts().clear();
    manager.SetIndexElement(element);
    EXPECT_FALSE(manager.CanDraw());
    EXPECT_FALSE(HaveSaved());
    EXPECT_EQ(desk.Dialogs().LastCause(), "");
    EXPECT_TRUE(desk.StatusTexts().empty());
}

TEST_F(Lifecycle, FailedRunStoresNothing) {
    Store(desk, element, {{"Listing.ColumnWidth", 0.11}});
    manager.SetIndexElement(element);
    EXPECT_EQ(desk.Dialogs().messages.size(), 1U);
    EXPECT_TRUE(manager.CanDraw());
    EXPECT_FALSE(HaveSaved());
    EXPECT_EQ(std::get<std::int32_t>(manager.PageCount()), 0);
    manager.SetIndexToPageNumber(1);
    EXPECT_EQ(desk.Dialogs().LastCause(), "Page number out of range.");
    EXPECT_EQ(manager.FirstListing(0), "");
    EXPECT_EQ(desk.Dialogs().messages.size(), 3U);
}

TEST_F(Lifecycle, StatusTextsOfARunAndADraw) {
    manager.SetIndexElement(element);
    manager.SetIndexToPageNumber(1);
    EXPECT_EQ(
        desk.StatusTexts(),
        (std::vector<std::string>{
            "Generating column text for listing: 0", "Generating column text for listing: 1",
            "Generating column text for listing: 2", "Generating column text for listing: 3",
            "Sorting Listings (Please be patient. This can take a while)...",
            "Removing Duplicates, Combining and Storing listings...1",
            "Removing Duplicates, Combining and Storing listings...2",
            "Laying out each page: 1: Placing graphics on page: 0",
            "Laying out each page: 1: Placing graphics on page: 1",
            "Finding first and last listing on each page: 1", "", "", "",
            "Page 1: Placing listings on layout: 0", "Page 1: Placing listings on layout: 1", ""}));
}

TEST(FailedSort, BringsTheAnimationToRest) {
    std::vector<desk::AnimationStep> steps;
    desk::DeskOptions options;
    options.listeners.animation = [&](desk::AnimationStep step) { steps.push_back(step); };
    TestDesk desk(options);
    const auto element = desk.NewGazetteer(desk.ListingTable({{"Ash", "1"}}), 4.5, 3);
    TestDesk::SetIn(*desk.Properties(element), "ColumnSortOrder")->SetItem("Nowhere", true);
    CVNGazetteerManager(desk.HostRef()).SetIndexElement(element);
    EXPECT_NE(desk.Dialogs().LastCause().find("Nowhere"), std::string::npos);
    using enum desk::AnimationStep;
    EXPECT_EQ(steps, (std::vector<desk::AnimationStep>{Show, Play, Hide, Stop}));
}

TEST_F(Lifecycle, DefaultPageIsReadAtTheBinding) {
    manager.SetIndexElement(element);
    manager.SetDefaultPageNumber(0);
    EXPECT_EQ(manager.DefaultPage(), 1);
    manager.SetIndexElement(element);
    EXPECT_EQ(manager.DefaultPage(), 0);
    Store(desk, element, {{"DefaultPage", 40000}});
    manager.SetIndexElement(element);
    manager.DefaultPage();
    EXPECT_EQ(desk.Dialogs().LastCause(), "Overflow");
}

// Of versions that are not known nothing is read that some version lacks.
TEST_F(Lifecycle, VersionsTellWhichKeysAreRead) {
    for (std::int16_t version = 0; version < 5; ++version) {
        element = Gazetteer();
        const bool readsSample = version == 2 || version == 3;
        Store(desk, element, {{"Version", version}, {"SamplePage", true}});
        std::vector<std::string> lacking;
        if (version != 3)
            lacking = {"CombineFirstAndLast", "ClearRepeatingText", "AddStartingBreak"};
        if (!readsSample) lacking.emplace_back("SamplePage");
        for (const auto& key : lacking) desk.Properties(element)->RemoveItem(key);
        CVNGazetteerManager fresh(desk.HostRef());
        fresh.SetIndexElement(element);
        EXPECT_EQ(desk.Dialogs().LastCause(), "") << version;
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
        const auto properties = desk.Properties(element);
        Settings settings;
        ReadSettings(desk.Host(), *properties, settings);
        settings.sortColumns = sorts;
        for (const auto& name : names) AddColumn(desk.Host(), settings, name, nullptr);
        StoreEdit(desk.Host(), settings, true, *properties);
        for (const auto& name : names) Store(desk, element, {{name + ".Expression", name}});
        manager.SetIndexElement(element);
        EXPECT_EQ(desk.Dialogs().LastCause(), "") << names[0];
        ASSERT_EQ(manager.CanDraw(), *finding == 0) << names[0];
        if (manager.CanDraw())
            EXPECT_TRUE(desk.ListingTexts(manager)[0].ends_with('|' + names.back())) << names[0];
        else
            EXPECT_NE(manager.LastFindings().at(0).find(finding), std::string::npos);
    }
}

// Whatever a damaged document holds ends in the dialog.
TEST_F(Lifecycle, StoredValuesOfTheWrongKindAreFailures) {
    struct Case {
        const char* what;
        std::function<void(const host::Ref<host::IHostPropertySet>&)> damage;
    };
    const auto inSet = [](const char* name, const char* key) {
        return [=](const auto& set) { TestDesk::SetIn(*set, name)->SetItem(key, "x"); };
    };
    const Case cases[] = {
        {"ColumnNames", [](const auto& set) { set->SetItem("ColumnNames", "x"); }},
        {"ColumnsProperties", [](const auto& set) { set->SetItem("ColumnsProperties", "x"); }},
        {"PageGroups", inSet("PageGroups", "1")},
        {"SavedListings", inSet("SavedListings", "Listing")},
        {"Version", [](const auto& set) { set->RemoveItem("Version"); }},
    };
    for (const Case& c : cases) {
        element = Gazetteer();
        manager.SetIndexElement(element);
        c.damage(desk.Properties(element));
        manager.Reset();
        desk.Dialogs().messages.clear();
        manager.CanDrawIndex(element);
        manager.SetIndexElement(element);
        manager.SetIndexToPageNumber(1);
        EXPECT_FALSE(desk.Dialogs().messages.empty()) << c.what;
    }
    manager.AddGazetteerProperties(nullptr, desk.Host().NewPropertySet());
    EXPECT_EQ(desk.Dialogs().LastCause(), "Error attempting to set gazetteer properties.");
}

// A binding that failed half-way keeps what it read, as its own, and shows no page of another
// element.
TEST_F(Lifecycle, FailedReadingKeepsWhatWasRead) {
    const auto bad = Gazetteer();
    Store(desk, bad, {{"Listing.Alignment", "Right"}});
    desk.Properties(bad)->RemoveItem("Version");
    manager.SetIndexElement(element);
    manager.SetIndexElement(bad);
    manager.SetIndexToPageNumber(1);
    EXPECT_TRUE(TestDesk::Members(*bad, "ROWGROUP").empty());
    const auto symbolOf = [](const host::IHostPropertySet& column) {
        return std::get<host::Ref<host::IHostObject>>(column.Item("ColumnFontSymbol"));
    };
    const auto stored = symbolOf(*desk.Column(bad, "Listing"));
    EXPECT_EQ(host::As<host::IHostTextSymbol>(stored)->HorizontalPlacement(), 0);
    const auto read = TestDesk::SetIn(*manager.BoundSettings().columnsProperties, "Listing");
    EXPECT_EQ(read->Item("Alignment"), host::Variant("Right"));
    EXPECT_NE(symbolOf(*read), stored);
}

// As a host may have it, names that are not there are failures.
struct StrictSet : host::IHostPropertySet {
    std::int32_t Count() const override { return 0; }
    host::Variant Item(const std::string& name) const override { Fail(name); }
    host::PropertyItems AllItems() const override { return {}; }
    void SetItem(const std::string& name, host::Variant /*value*/) override { Fail(name); }
    void RemoveItem(const std::string& name) override { Fail(name); }
    host::Ref<host::IHostObject> Copy() const override { return nullptr; }

private:
    [[noreturn]] static void Fail(const std::string& name) {
        throw host::Failure(host::kFailureNotFound, "", name);
    }
};

TEST_F(Lifecycle, PropertiesHangBesideThoseOfOthers) {
    element = desk.Host().NewGroupElement();
    auto container = desk.Host().NewPropertySet();
    container->SetItem("Other", "kept");
    host::As<host::IHostCustomProperty>(element)->SetCustomProperty(TestDesk::Object(container));
    EXPECT_FALSE(HasGazetteerProperties(desk.Host(), element));
    EXPECT_TRUE(SetGazetteerProperties(desk.Host(), element, NewGazetteerProperties(desk.Host())));
    EXPECT_TRUE(HasGazetteerProperties(desk.Host(), element));
    EXPECT_EQ(std::get<std::string>(container->Item("Other")), "kept");
    DeleteKeyProperties(desk.Host(), element);
    EXPECT_FALSE(HasGazetteerProperties(desk.Host(), element));
    EXPECT_TRUE(HasCorvaneProperties(element));
    container->SetItem("CorvaneProperties", TestDesk::Object(std::make_shared<StrictSet>()));
    DeleteKeyProperties(desk.Host(), element);
    EXPECT_EQ(desk.Dialogs().LastCause(), "");
    GetGazetteerProperties(desk.Host(), element);
    EXPECT_EQ(desk.Dialogs().LastCause(), "Group Element has no gazetteer properties.");
}

}  // namespace
}  // namespace gazetteer
