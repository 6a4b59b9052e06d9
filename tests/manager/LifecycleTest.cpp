#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

#include "model/GeneralFunctions.h"
#include "support/TestDesk.h"

namespace gazetteer {
namespace {

using support::TestDesk;

class Lifecycle : public ::testing::Test {
protected:
    host::Ref<host::IHostGroupElement> Gazetteer() { return desk.NewGazetteer(table, 4.5, 3); }
    std::int32_t Pages(CVNGazetteerManager& manager) {
        const auto count = manager.PageCount();
        const auto* pages = std::get_if<std::int32_t>(&count);
        return pages ? *pages : -1;
    }
    bool HaveSaved(const host::Ref<host::IHostGroupElement>& element) {
        return std::get<bool>(desk.Properties(element)->Item("HaveSavedListings"));
    }
    TestDesk desk;
    std::string table = desk.ListingTable({{"Abbey Road", "4"}, {"Zion Street", "9"}});
};

TEST_F(Lifecycle, TextsOfOperationsOutOfPlace) {
    struct Case {
        const char* operation;
        void (*call)(CVNGazetteerManager&);
        const char* unbound;
        const char* notDrawable;  // Null where the operation works.
        const char* outOfRange;
    };
    const Case cases[] = {
        {"SetIndexToPageNumber", [](CVNGazetteerManager& m) { m.SetIndexToPageNumber(2); },
         "IndexElement has not been set.", "IndexElement properties have not been set.",
         "Page number out of range."},
        {"SetIndexToPageNumber 0", [](CVNGazetteerManager& m) { m.SetIndexToPageNumber(0); },
         "IndexElement has not been set.", "IndexElement properties have not been set.",
         "Page number out of range."},
        {"DraftMode", [](CVNGazetteerManager& m) { m.DraftMode(); },
         "IndexElement has not been set.", nullptr, nullptr},
        {"DefaultPage", [](CVNGazetteerManager& m) { m.DefaultPage(); },
         "Index Element has not been set.", "Index Element properties have not been set.", nullptr},
        {"SetDefaultPageNumber", [](CVNGazetteerManager& m) { m.SetDefaultPageNumber(2); },
         "MapFrame has not been set.", "Page number out of range.", "Page number out of range."},
        {"PageCount", [](CVNGazetteerManager& m) { m.PageCount(); },
         "Index Element has not been set.", nullptr, nullptr},
        {"FirstListing", [](CVNGazetteerManager& m) { m.FirstListing(2); },
         "Index Element has not been set.", "IndexElement properties have not been set.",
         "Page number out of range."},
        {"LastListing", [](CVNGazetteerManager& m) { m.LastListing(-1); },
         "Index Element has not been set.", "IndexElement properties have not been set.",
         "Page number out of range."},
        {"PageName", [](CVNGazetteerManager& m) { m.PageName(2); },
         "Index Element has not been set.", "IndexElement properties have not been set.",
         "Page number out of range."},
    };
    const auto shown = [&](CVNGazetteerManager& manager, const Case& c) {
        desk.Dialogs().messages.clear();
        c.call(manager);
        return desk.Dialogs().LastCause();
    };
    const auto drawable = Gazetteer();
    const auto broken = Gazetteer();
    desk.Properties(broken)->SetItem("IndexDatabaseFile", std::string());
    for (const Case& c : cases) {
        CVNGazetteerManager manager(desk.HostRef());
        EXPECT_EQ(shown(manager, c), c.unbound) << c.operation;
        manager.SetIndexElement(broken);
        EXPECT_EQ(shown(manager, c), c.notDrawable ? c.notDrawable : "") << c.operation;
        manager.SetIndexElement(drawable);
        EXPECT_EQ(shown(manager, c), c.outOfRange ? c.outOfRange : "") << c.operation;
        manager.Reset();
        EXPECT_EQ(shown(manager, c), c.unbound) << c.operation;
    }
}

TEST_F(Lifecycle, ElementWithoutPropertiesLeavesTheBinding) {
    const auto element = Gazetteer();
    CVNGazetteerManager manager(desk.HostRef());
    manager.SetIndexElement(element);
    manager.SetIndexElement(desk.Host().NewGroupElement());
    EXPECT_EQ(desk.Dialogs().LastCause(), "Index element no longer has series properties.");
    EXPECT_EQ(Pages(manager), 1);
}

TEST_F(Lifecycle, ResultsAreStoredOnceAndReloadedByReference) {
    const auto element = Gazetteer();
    CVNGazetteerManager first(desk.HostRef());
    first.SetIndexElement(element);
    EXPECT_TRUE(first.HasRun());
    EXPECT_TRUE(HaveSaved(element));
    desk.ReplaceTable(table, {{"Changed", "1"}});
    CVNGazetteerManager second(desk.HostRef());
    second.SetIndexElement(element);
    EXPECT_FALSE(second.HasRun());
    EXPECT_EQ(second.Working().listings, first.Working().listings);
    EXPECT_EQ(second.FirstListing(1), " Abbey Road");
    EXPECT_EQ(std::get<std::string>(second.PageName(1)), " Abbey Road -  Zion Street");

    // Auto refresh wins over stored results and stores none of its own.
    desk.Properties(element)->SetItem("AutoRefreshListings", true);
    second.SetIndexElement(element);
    EXPECT_EQ(second.FirstListing(1), " Changed");
    const auto stored = TestDesk::SetIn(*desk.Properties(element), "PageFirstListings");
    EXPECT_EQ(std::get<std::string>(stored->Item("1")), " Abbey Road");

    // Stored results do not make up for a database that is gone.
    desk.Properties(element)->SetItem("AutoRefreshListings", false);
    std::filesystem::remove(table);
    second.SetIndexElement(element);
    EXPECT_FALSE(second.CanDraw());
    EXPECT_EQ(desk.Dialogs().LastCause(), "");
}

TEST_F(Lifecycle, EmptyDatabaseIsNoFailure) {
    const auto element = desk.NewGazetteer(desk.ListingTable({}), 4.5, 3);
    CVNGazetteerManager manager(desk.HostRef());
    EXPECT_TRUE(manager.CanDrawIndex(element));
    desk.StatusTexts().clear();
    manager.SetIndexElement(element);
    EXPECT_FALSE(manager.CanDraw());
    EXPECT_FALSE(HaveSaved(element));
    EXPECT_EQ(desk.Dialogs().LastCause(), "");
    EXPECT_TRUE(desk.StatusTexts().empty());
}

TEST_F(Lifecycle, FailedRunStoresNothing) {
    const auto element = Gazetteer();
    desk.Column(element, "Listing")->SetItem("ColumnWidth", 0.11);
    CVNGazetteerManager manager(desk.HostRef());
    manager.SetIndexElement(element);
    EXPECT_EQ(desk.Dialogs().messages.size(), 1U);
    EXPECT_TRUE(manager.CanDraw());
    EXPECT_FALSE(HaveSaved(element));
    EXPECT_EQ(Pages(manager), 0);
    manager.SetIndexToPageNumber(1);
    EXPECT_EQ(desk.Dialogs().LastCause(), "Page number out of range.");
    EXPECT_EQ(manager.FirstListing(0), "");
    EXPECT_EQ(desk.Dialogs().messages.size(), 3U);
}

TEST_F(Lifecycle, StatusTextsOfARunAndADraw) {
    const auto element = Gazetteer();
    CVNGazetteerManager manager(desk.HostRef());
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
    const auto element = Gazetteer();
    CVNGazetteerManager manager(desk.HostRef());
    manager.SetIndexElement(element);
    manager.SetDefaultPageNumber(0);
    EXPECT_EQ(manager.DefaultPage(), 1);
    manager.SetIndexElement(element);
    EXPECT_EQ(manager.DefaultPage(), 0);
    desk.Properties(element)->SetItem("DefaultPage", std::int32_t{40000});
    manager.SetIndexElement(element);
    manager.DefaultPage();
    EXPECT_EQ(desk.Dialogs().LastCause(), "Overflow");
}

TEST_F(Lifecycle, OlderVersionsLackKeys) {
    for (const std::int16_t version : {std::int16_t{1}, std::int16_t{2}, std::int16_t{3}}) {
        const auto element = Gazetteer();
        const auto properties = desk.Properties(element);
        properties->SetItem("Version", version);
        properties->SetItem("SamplePage", true);
        if (version < 3)
            for (const char* key :
                 {"CombineFirstAndLast", "ClearRepeatingText", "AddStartingBreak"})
                properties->RemoveItem(key);
        if (version < 2) properties->RemoveItem("SamplePage");
        CVNGazetteerManager manager(desk.HostRef());
        manager.SetIndexElement(element);
        EXPECT_EQ(desk.Dialogs().LastCause(), "") << version;
        EXPECT_EQ(manager.BoundSettings().samplePage, version > 1) << version;
        EXPECT_EQ(manager.BoundSettings().combineFirstAndLast, version > 2) << version;
    }
}

// Whatever a damaged document holds ends in the dialog.
TEST_F(Lifecycle, StoredValuesOfTheWrongKindAreFailures) {
    struct Case {
        const char* what;
        std::function<void(const host::Ref<host::IHostPropertySet>&)> damage;
    };
    const auto text = std::string("x");
    const Case cases[] = {
        {"ColumnNames", [&](const auto& set) { set->SetItem("ColumnNames", text); }},
        {"ColumnsProperties", [&](const auto& set) { set->SetItem("ColumnsProperties", text); }},
        {"PageGroups",
         [&](const auto& set) { TestDesk::SetIn(*set, "PageGroups")->SetItem("1", text); }},
        {"SavedListings",
         [&](const auto& set) {
             TestDesk::SetIn(*set, "SavedListings")->SetItem("Listing", text);
         }},
        {"Version", [&](const auto& set) { set->RemoveItem("Version"); }},
    };
    for (const Case& c : cases) {
        const auto element = Gazetteer();
        CVNGazetteerManager(desk.HostRef()).SetIndexElement(element);
        c.damage(desk.Properties(element));
        CVNGazetteerManager manager(desk.HostRef());
        desk.Dialogs().messages.clear();
        manager.CanDrawIndex(element);
        manager.SetIndexElement(element);
        manager.SetIndexToPageNumber(1);
        EXPECT_FALSE(desk.Dialogs().messages.empty()) << c.what;
    }
    CVNGazetteerManager(desk.HostRef())
        .AddGazetteerProperties(nullptr, desk.Host().NewPropertySet());
    EXPECT_EQ(desk.Dialogs().LastCause(), "Error attempting to set gazetteer properties.");
}

// The element's own symbols are never written to, also after a binding that failed half-way.
TEST_F(Lifecycle, FailedBindingLeavesStoredSymbolsAlone) {
    const auto good = Gazetteer();
    const auto bad = Gazetteer();
    desk.Column(bad, "Listing")->SetItem("Alignment", std::string("Right"));
    desk.Properties(bad)->RemoveItem("Version");
    CVNGazetteerManager manager(desk.HostRef());
    manager.SetIndexElement(good);
    manager.SetIndexElement(bad);
    manager.SetIndexToPageNumber(1);
    const auto symbol = std::get<host::Ref<host::IHostObject>>(
        desk.Column(bad, "Listing")->Item("ColumnFontSymbol"));
    EXPECT_EQ(host::As<host::IHostTextSymbol>(symbol)->HorizontalPlacement(), 0);
}

TEST_F(Lifecycle, PropertiesHangBesideThoseOfOthers) {
    auto element = desk.Host().NewGroupElement();
    auto container = desk.Host().NewPropertySet();
    container->SetItem("Other", std::string("kept"));
    host::As<host::IHostCustomProperty>(element)->SetCustomProperty(TestDesk::Object(container));
    EXPECT_FALSE(HasGazetteerProperties(desk.Host(), element));
    EXPECT_TRUE(SetGazetteerProperties(desk.Host(), element, NewGazetteerProperties(desk.Host())));
    EXPECT_TRUE(HasGazetteerProperties(desk.Host(), element));
    EXPECT_EQ(std::get<std::string>(container->Item("Other")), "kept");
    DeleteKeyProperties(desk.Host(), element);
    EXPECT_FALSE(HasGazetteerProperties(desk.Host(), element));
    EXPECT_TRUE(HasCorvaneProperties(element));
    GetGazetteerProperties(desk.Host(), element);
    EXPECT_EQ(desk.Dialogs().LastCause(), "Group Element has no gazetteer properties.");
}

}  // namespace
}  // namespace gazetteer
