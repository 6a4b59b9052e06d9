#include <algorithm>
#include <cstdio>
#include <functional>
#include <gtest/gtest.h>
#include <set>

#include "faults/FaultyHost.h"
#include "model/GeneralFunctions.h"
#include "page/SetDump.h"
#include "support/TestDesk.h"

/// Every call of the host fails in turn, until a pass meets no fault. Each time the user is told,
/// nothing stored is half done, and the same operation works when it is asked again.
namespace {

using faults::Faults;
using gazetteer::CVNGazetteerManager;
using support::TestDesk;

constexpr std::int64_t kNoFault = -1;
constexpr char kOwnTag[] = "MINE";

constexpr char kBook[] = R"({"currentTemplate": "index", "books": [{"key": "atlas", "sections": [
   {"key": "maps", "name": "Maps", "startPage": 5, "pages": ["sheet$1", "sheet$2"],
    "templates": [{"key": "sheet", "name": "Map sheet", "layout": [
      {"kind": "group", "members": [{"kind": "mapFrame", "name": "Main map",
       "series": {"indexLayer": "sheets.dbf", "firstPage": 1, "grids": [
         {"kind": "index", "visible": true, "rows": ["A", "B"], "columns": ["i", "j"]}]}}]}]}]},
   {"key": "back", "name": "Index", "startPage": 40, "pages": ["index$1"],
    "templates": [{"key": "index", "name": "Gazetteer", "layout": []}]}]}]})";

class HostFaults;

struct Story {
    const char* name;
    /// Reads of the guarded probe for a gazetteer's properties in it: a failing one counts as an
    /// absent key by rule, which is told in other words or answered with no.
    int probes;
    void (*prepare)(HostFaults&);
    void (*act)(HostFaults&);
};

class HostFaults : public testing::TestWithParam<Story> {
public:
    HostFaults() {
        desk.UseBook(kBook, {{"REGION"}, {{"North"}, {"South"}}});
        pristine = desk.NewGazetteer(desk.GridTable({{"2nd St", "1", "1", "2"},
                                                     {"Ash", "2", "2", "1"},
                                                     {"Ash", "1", "2", "1"},
                                                     {"Ash", "1", "2", "1"},
                                                     {"Birch Lane and Square", "2", "1", "1"}}),
                                     4.5, 0.9);
        const auto set = [&](const char* key, host::Variant value) {
            desk.Properties(pristine)->SetItem(key, std::move(value));
        };
        set("LinkToMapSeries", true);
        set("MapSeriesSectionKey", std::string("maps"));
        set("MapSeriesTemplateKey", std::string("sheet"));
        set("MapSeriesFrameName", std::string("Main map"));
        set("ClearRepeatingText", true);
        const auto page = desk.Column(pristine, "Page");
        page->SetItem("FromDatabase", false);
        page->SetItem("Expression", std::string("$$PAGE_NUMBER $$ROW-$$COLUMN [Region]"));
        desk.Column(pristine, "Listing")->SetItem("ColumnWidth", 1.1);
        bare = desk.Host().NewGroupElement();
        bare->SetGeometry(pristine->Geometry());
        gazetteer::SetGazetteerProperties(desk.Host(), bare, desk.Host().NewPropertySet());
        gazetteer::DeleteKeyProperties(desk.Host(), bare);
        for (const auto& place : {pristine, bare}) {
            Container(place)->SetItem(kOwnTag, std::string("kept"));
            TestDesk::SetIn(*Container(place), "CorvaneProperties")
                ->SetItem(kOwnTag, std::string("kept"));
        }
    }
    static host::Ref<host::IHostPropertySet> Container(
        const host::Ref<host::IHostGroupElement>& place) {
        const auto custom = host::As<host::IHostCustomProperty>(place)->CustomProperty();
        return host::As<host::IHostPropertySet>(std::get<host::Ref<host::IHostObject>>(custom));
    }

    void NewManager() { manager = std::make_unique<CVNGazetteerManager>(host); }
    void Bind() {
        manager->SetIndexElement(element);
        Note(manager->CanDraw() ? "bound" : "not bound");
    }
    void Draw(std::int32_t page) { manager->SetIndexToPageNumber(page); }
    void Note(const std::string& answer) { answers += answer + '\n'; }

    TestDesk desk;
    Faults faults;
    host::Ref<host::IHost> host = faults::MakeFaulty(desk.HostRef(), faults);
    host::Ref<host::IHostGroupElement> pristine;
    host::Ref<host::IHostGroupElement> bare;  ///< With properties of others alone.
    host::Ref<host::IHostGroupElement> element;
    host::Ref<host::IHostGroupElement> other;
    std::unique_ptr<CVNGazetteerManager> manager;
    std::string answers;

protected:
    void StartAnew(const Story& story) {
        faults.FailAt(0);
        element = faults::Infect(pristine, faults);
        other = faults::Infect(bare, faults);
        // A graphic of the user's own among the members.
        const auto own = desk.Host().NewRectangleElement();
        host::As<host::IHostElementName>(own)->SetName(kOwnTag);
        element->Add(own);
        NewManager();
        story.prepare(*this);
        desk.Dialogs().messages.clear();
    }
    void Act(const Story& story, std::int64_t failAt) {
        answers.clear();
        desk.Dialogs().messages.clear();
        faults.FailAt(failAt);
        story.act(*this);
        struck = faults.Struck();
        count = faults.Count();
        faults.FailAt(0);
    }
    std::string Outcome() {
        return answers + page_test::Dump(*desk.Properties(element)) + desk.Dump(*element);
    }
    bool WasTold() {
        return std::ranges::any_of(desk.Dialogs().messages, [](const auto& message) {
            return message.cause == Faults::kSentence;
        });
    }
    // What other components hung on the elements.
    bool OthersAreThere() {
        return std::ranges::all_of(std::initializer_list{element, other}, [](const auto& place) {
            const auto container = Container(place);
            const auto maker = TestDesk::SetIn(*container, "CorvaneProperties");
            const host::Variant kept = std::string("kept");
            return container->Item(kOwnTag) == kept && maker->Item(kOwnTag) == kept;
        });
    }
    // What the user set, without what a run stores.
    std::string UserSettings() {
        auto copy = desk.Host().NewPropertySet();
        const auto items = desk.Properties(element)->AllItems();
        const std::set<std::string> ofRuns = {"HaveSavedListings", "SavedListings",
                                              "PageGroups",        "PageFirstListings",
                                              "PageLastListings",  "DefaultPage"};
        for (std::size_t i = 0; i < items.names.size(); ++i)
            if (!ofRuns.contains(items.names[i])) copy->SetItem(items.names[i], items.values[i]);
        return page_test::Dump(*copy);
    }

    std::string struck;
    std::int64_t count = 0;
};

TEST_P(HostFaults, AreToldAndLoseNothing) {
    const Story& story = GetParam();
    StartAnew(story);
    const std::string settings = UserSettings();
    Act(story, kNoFault);
    ASSERT_TRUE(desk.Dialogs().messages.empty()) << desk.Dialogs().LastCause();
    const std::int64_t calls = count;
    const std::string good = Outcome();

    int probed = 0;
    int harmless = 0;  // Without a word, with all as without the fault.
    std::int64_t call = 1;
    for (;; ++call) {
        StartAnew(story);
        Act(story, call);
        if (struck.empty()) break;
        const std::string where = "call " + std::to_string(call) + ", " + struck;
        if (!WasTold()) {
            if (desk.Dialogs().messages.empty() && Outcome() == good)
                ++harmless;
            else if (struck == "IHostPropertySet.Item")
                ++probed;
            else
                ADD_FAILURE() << where << " went by without a word";
        }
        EXPECT_TRUE(OthersAreThere()) << where;
        EXPECT_EQ(UserSettings(), settings) << where;
        EXPECT_EQ(TestDesk::Members(*element, kOwnTag).size(), 1U) << where;
        if (std::get<bool>(desk.Properties(element)->Item("HaveSavedListings"))) {
            for (const char* set : {"SavedListings", "PageGroups", "PageFirstListings"})
                EXPECT_GT(TestDesk::SetIn(*desk.Properties(element), set)->Count(), 0) << where;
        }
        Act(story, 0);
        EXPECT_TRUE(desk.Dialogs().messages.empty()) << where << desk.Dialogs().LastCause();
        EXPECT_EQ(Outcome(), good) << where;
        if (HasFailure()) return;
    }
    EXPECT_EQ(call, calls + 1);
    EXPECT_EQ(Outcome(), good);
    std::set<std::string> interfaces;
    for (const auto& [operation, times] : faults.Calls()) interfaces.insert(operation.first);
    EXPECT_EQ(probed, story.probes);
    std::printf("%s: %lld calls failed in turn, %zu operations of %zu interfaces; %d did no harm\n",
                story.name, static_cast<long long>(calls), faults.Calls().size(), interfaces.size(),
                harmless);
}

const Story kStories[] = {
    {"Check", 2, [](HostFaults&) {},
     [](HostFaults& h) { h.Note(h.manager->CanDrawIndex(h.element) ? "drawable" : "not"); }},
    {"BindAndRun", 4, [](HostFaults&) {}, [](HostFaults& h) { h.Bind(); }},
    {"Reload", 4, [](HostFaults& h) { h.Bind(); }, [](HostFaults& h) { h.Bind(); }},
    {"DrawAPage", 0,
     [](HostFaults& h) {
         h.Bind();
         h.Draw(1);
     },
     [](HostFaults& h) { h.Draw(2); }},
    {"Draft", 0,
     [](HostFaults& h) {
         h.Bind();
         h.Draw(1);
     },
     [](HostFaults& h) { h.manager->DraftMode(); }},
    {"Queries", 0, [](HostFaults& h) { h.Bind(); },
     [](HostFaults& h) {
         h.manager->SetDefaultPageNumber(2);
         h.Note(std::to_string(std::get<std::int32_t>(h.manager->PageCount())));
         for (std::int32_t page = 1; page <= 2; ++page) {
             h.Note(h.manager->FirstListing(page) + '|' + h.manager->LastListing(page));
             if (const auto name = h.manager->PageName(page);
                 const auto* text = std::get_if<std::string>(&name))
                 h.Note(*text);
         }
     }},
    {"PutOnAndTakeOff", 3, [](HostFaults&) {},
     [](HostFaults& h) {
         const auto fresh = h.manager->MakeGazetteerProperties();
         if (fresh) h.manager->AddGazetteerProperties(h.other, fresh);
         h.Note(h.manager->IsGazetteerElement(h.other) ? "on" : "off");
         h.manager->RemoveGazetteerProperties(h.other);
         h.Note(h.manager->IsGazetteerElement(h.other) ? "on" : "off");
     }},
};

INSTANTIATE_TEST_SUITE_P(AllOf, HostFaults, testing::ValuesIn(kStories),
                         [](const auto& story) { return std::string(story.param.name); });

}  // namespace
