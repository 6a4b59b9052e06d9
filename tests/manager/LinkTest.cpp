#include <gtest/gtest.h>

#include "model/Paths.h"
#include "support/SmallHost.h"

namespace gazetteer {
namespace {

using Names = std::vector<std::string>;

host::Ref<host::IHostElement> GroupOf(const std::vector<host::Ref<host::IHostElement>>& members) {
    auto group = std::make_shared<texthost::GroupElement>();
    for (const auto& member : members) group->Add(member);
    return group;
}

// A book of a map section and an index section behind it. The maps start at book page 5, the series
// on the page behind it. The index layer has a region for each of two sheets.
std::vector<texthost::Section> Sections() {
    using texthost::IndexGrid, texthost::MapFrame, texthost::Table, texthost::Values;
    const auto layer =
        std::make_shared<Table>(Names{"Region"}, std::vector<Values>{{"North"}, {"South"}});
    const auto hidden = std::make_shared<IndexGrid>(Names{"x"}, Names{"y"}, false);
    const auto grid = std::make_shared<IndexGrid>(Names{"A", "B", "C"}, Names{"i", "j"});
    const auto frame = std::make_shared<MapFrame>("Main map", layer, MapFrame::Grids{hidden, grid});
    const auto inner = GroupOf({frame, GroupOf({std::make_shared<MapFrame>("Deep", layer)})});
    const texthost::Template cover{"cover", {}};
    const texthost::Template sheet{"sheet", {std::make_shared<MapFrame>("Plain"), inner}};
    return {{"early", 1, {"front$1"}, {{"front", {}}}},
            {"maps", 5, {"cover$1", "sheet$1", "sheet$2"}, {cover, sheet}},
            {"back", 40, {"index$1"}, {{"index", {}}}}};
}

class Link : public ::testing::Test, protected support::SmallHost {
protected:
    using Listings = std::vector<std::string>;

    void SetUp() override {
        UseBook(Sections(), "index");
        NewElement(GridTable({{"Ash", "1", "3", "2"}, {"Birch", "2", "40", "1"}}));
    }
    void NewElement(const std::string& table) {
        element = NewGazetteer(table, 4.5, 3);
        Store(element, {{"LinkToMapSeries", true},
                        {"MapSeriesSectionKey", "maps"},
                        {"MapSeriesTemplateKey", "sheet"},
                        {"MapSeriesFrameName", "Main map"}});
    }
    /// Of a column Page that is not from the database.
    Listings RunLinked(const char* expression) {
        return Run({{"HaveSavedListings", false},
                    {"Page.FromDatabase", false},
                    {"Page.Expression", expression}});
    }
    Listings Run(const Assignments& settings = {}) {
        Store(element, settings);
        CVNGazetteerManager manager(HostRef());
        manager.SetIndexElement(element);
        findings = manager.LastFindings();
        return manager.CanDraw() ? ListingTexts(manager) : Listings{};
    }
    Group element;
    Findings findings;
};

TEST_F(Link, ColumnsSeeThePagesOfTheBookOrThoseOfTheDatabase) {
    EXPECT_EQ(Run(), (Listings{"Ash|1 3-2", "Birch|2 40-1"}));
    // The section starts at page 5 and the template stands on its second page.
    EXPECT_EQ(RunLinked("$$PAGE_NUMBER $$ROW-$$COLUMN [Region]"),
              (Listings{"Ash|6 C-j North", "Birch|7 40-i South"}));
    // A series behind the gazetteer moves no page.
    UseBook(Sections(), "front");
    EXPECT_EQ(RunLinked("$$PAGE_NUMBER"), (Listings{"Ash|1", "Birch|2"}));
    // Fields that are not there count as 0, which no grid is asked about.
    NewElement(ListingTable({{"Ash", "1"}}));
    EXPECT_EQ(RunLinked("$$PAGE_NUMBER $$ROW-$$COLUMN"), Listings{"Ash|1 0-0"});
}

TEST_F(Link, FindingsNameWhatIsBroken) {
    const std::pair<Assignments, const char*> cases[] = {
        {{{"MapSeriesSectionKey", "<None>"}}, "No section of the map book is chosen for the link."},
        {{{"MapSeriesTemplateKey", "gone"}},
         "The linked template \"gone\" is not in the section \"maps\"."},
        {{{"MapSeriesFrameName", "Plain"}},
         "There is no map series frame \"Plain\" with an index layer on the template \"sheet\"."},
        {{{"MapSeriesFrameName", "Deep"}},
         "There is no map series frame \"Deep\" with an index layer on the template \"sheet\"."},
        {{{"IndexDatabaseFile", ""}}, "No listing database is set."},
        {{{"IndexDatabaseFile", "gone"}}, "The listing database \"gone\" does not exist."},
        {{{"Page.Expression", "[Nowhere]"}},
         "Column \"Page\": the expression \"[Nowhere]\" is not valid."},
        {{{"RepeatSpacing", std::numeric_limits<double>::quiet_NaN()}},
         "RepeatSpacing must be a number of inches from -1000 to 1000."},
        {{{"Page.ColumnWidth", 1e300}},
         "Column \"Page\": ColumnWidth must be a number of inches from -1000 to 1000."},
        {{{"LinkToMapSeries", false}, {"Page.FromDatabase", false}},
         "Column \"Page\" takes its text from the index layer of a map series frame, but the "
         "gazetteer is not linked to one."},
    };
    for (const auto& [settings, finding] : cases) {
        SetUp();
        EXPECT_TRUE(Run(settings).empty()) << finding;
        ASSERT_EQ(findings.size(), 1U) << finding;
        EXPECT_EQ(findings[0], finding);
    }
}

TEST_F(Link, FailuresNamePageRecordAndField) {
    auto sections = Sections();
    sections[1].startPage = 2147483647;
    sections[1].pages[1] = "sheet$0";
    UseBook(sections, "index");
    EXPECT_TRUE(RunLinked("$$PAGE_NUMBER").empty());
    EXPECT_EQ(Dialogs().LastFact("page"), "2147483649");

    NewElement(GridTable({{"Ash", "1", "3", "2"}, {"Birch", "", "1", "1"}}));
    UseBook(Sections(), "index");
    RunLinked("$$PAGE_NUMBER");
    for (const auto& [fact, value] :
         {std::pair{"record", "2"}, {"field", "Page"}, {"value", "(none)"}, {"column", "Page"}})
        EXPECT_EQ(Dialogs().LastFact(fact), value) << fact;
}

// The book is asked about a section before anybody knows that it is there.
TEST_F(Link, StaleSectionEndsTheCheck) {
    Store(element, {{"MapSeriesSectionKey", "gone"}});
    CVNGazetteerManager manager(HostRef());
    EXPECT_FALSE(manager.CanDrawIndex(element));
    EXPECT_NE(manager.LastFindings().at(0).find("gone"), std::string::npos);
    manager.SetIndexElement(element);
    EXPECT_TRUE(manager.CanDraw());  // As stored at the last apply.
    EXPECT_EQ(std::get<std::int32_t>(manager.PageCount()), 0);
    EXPECT_EQ(manager.LastListing(0), "");
    EXPECT_EQ(Dialogs().messages.size(), 3U);
}

struct ExplainingEngine : texthost::ExpressionEngine, host::IHostExpressionExplanation {
    explicit ExplainingEngine(bool canExplain) : explains(canExplain) {}
    host::ExpressionFinding Explain(const host::Ref<host::IHostTable>&,
                                    const std::string&) override {
        if (!explains) throw host::Failure(host::kFailureUnspecified, "", "No words.");
        return {"there is no such place", "Nowhere"};
    }
    bool explains;
};

TEST_F(Link, VerdictsNeedNoExplanation) {
    Store(element, {{"Page.Expression", "[Nowhere]"}});
    const auto properties = Properties(element);
    const auto table =
        OpenTableFile(Host(), std::get<std::string>(properties->Item("IndexDatabaseFile")));
    for (const auto& [explains, end] :
         {std::pair{true, " valid: there is no such place."}, {false, " valid."}}) {
        ExplainingEngine engine(explains);
        findings.clear();
        EXPECT_FALSE(CheckColumnExpressions(engine, Host().Locale(), *properties, {table, nullptr},
                                            findings));
        EXPECT_TRUE(findings.at(0).ends_with(end)) << findings.at(0);
    }
}

}  // namespace
}  // namespace gazetteer
