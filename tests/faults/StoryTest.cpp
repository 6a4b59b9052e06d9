#include "faults/StoryTest.h"

#include <algorithm>

#include "model/GeneralFunctions.h"
#include "support/SetDump.h"

namespace faults {
namespace {

using gazetteer::CVNGazetteerManager;
using support::TestDesk;

constexpr char kOwnTag[] = "MINE";

/// Reads of the guarded probe for a gazetteer's properties in any story: a failing one counts as an
/// absent key by rule, which is told in other words or answered with no.
constexpr int kMostProbes = 6;

// What other components hang on an element: a value beside the maker's, and one among those.
std::vector<host::Ref<host::IHostPropertySet>> OthersSets(
    const host::Ref<host::IHostGroupElement>& place) {
    const auto custom = host::As<host::IHostCustomProperty>(place)->CustomProperty();
    auto all = host::As<host::IHostPropertySet>(std::get<host::Ref<host::IHostObject>>(custom));
    return {all, TestDesk::SetIn(*all, "CorvaneProperties")};
}

}  // namespace

StoryTest::StoryTest() {
    desk.UseBook();
    pristine_ = desk.NewGazetteer(desk.GridTable({{"2nd St", "1", "1", "2"},
                                                  {"Ash", "2", "2", "1"},
                                                  {"Ash", "1", "2", "1"},
                                                  {"Ash", "1", "2", "1"},
                                                  {"Birch Lane and Square", "2", "1", "1"}}),
                                  4.5, 0.9);
    desk.StoreLink(pristine_, "maps");
    desk.Store(pristine_, {{"ClearRepeatingText", true},
                           {"Page.FromDatabase", false},
                           {"Page.Expression", "$$PAGE_NUMBER $$ROW-$$COLUMN [Region]"},
                           {"Listing.ColumnWidth", 1.1}});
    bare_ = desk.Host().NewGroupElement();
    bare_->SetGeometry(pristine_->Geometry());
    gazetteer::SetGazetteerProperties(desk.Host(), bare_, desk.Host().NewPropertySet());
    gazetteer::DeleteKeyProperties(desk.Host(), bare_);
    for (const auto& place : {pristine_, bare_})
        for (const auto& others : OthersSets(place)) others->SetItem(kOwnTag, std::string("kept"));
}

void StoryTest::Bind() {
    manager->SetIndexElement(element);
    Note(manager->CanDraw() ? "bound" : "not bound");
}

void StoryTest::StartAnew(const Story& story) {
    faults.FailAt(0);
    element = Infect(pristine_, faults);
    other = Infect(bare_, faults);
    // A graphic of the user's own among the members.
    const auto own = desk.Host().NewRectangleElement();
    host::As<host::IHostElementName>(own)->SetName(kOwnTag);
    element->Add(own);
    manager = std::make_unique<CVNGazetteerManager>(host);
    story.prepare(*this);
    desk.Dialogs().messages.clear();
}

void StoryTest::Act(const Story& story, std::int64_t failAt) {
    answers_.clear();
    desk.Dialogs().messages.clear();
    faults.FailAt(failAt);
    story.act(*this);
    struck_ = faults.Struck();
    count_ = faults.Count();
    faults.FailAt(0);
}

std::string StoryTest::Outcome(const Story& story) {
    return answers_ + story.look() + support::Dump(*desk.Properties(element)) + desk.Dump(*element);
}

bool StoryTest::IsTold(const Story& story, const std::string& good) {
    const auto& messages = desk.Dialogs().messages;
    if (messages.empty()) return Outcome(story) == good;
    return std::ranges::any_of(
        messages, [](const auto& message) { return message.cause == Faults::kSentence; });
}

// What the user set, without what a run stores.
std::string StoryTest::UserSettings() {
    const auto copy = host::As<host::IHostPropertySet>(desk.Properties(element)->Copy());
    for (const char* ofRuns : {"HaveSavedListings", "SavedListings", "PageGroups",
                               "PageFirstListings", "PageLastListings", "DefaultPage"})
        copy->RemoveItem(ofRuns);
    return support::Dump(*copy);
}

void StoryTest::ExpectNothingHalfDone() {
    for (const auto& place : {element, other})
        for (const auto& set : OthersSets(place))
            EXPECT_EQ(set->Item(kOwnTag), host::Variant(std::string("kept")));
    EXPECT_EQ(TestDesk::Members(*element, kOwnTag).size(), 1U);
    const auto properties = desk.Properties(element);
    if (!std::get<bool>(properties->Item("HaveSavedListings"))) return;
    for (const char* set : {"SavedListings", "PageGroups", "PageFirstListings"})
        EXPECT_GT(TestDesk::SetIn(*properties, set)->Count(), 0) << set;
}

void StoryTest::Tell(const Story& story) {
    StartAnew(story);
    const std::string settings = UserSettings();
    Act(story, 0);
    ASSERT_TRUE(desk.Dialogs().messages.empty()) << desk.Dialogs().LastCause();
    const std::int64_t calls = count_;
    const std::string good = Outcome(story);
    const std::string goodSettings = UserSettings();

    int probed = 0;
    for (std::int64_t call = 1; !HasFailure(); call += story.stride) {
        StartAnew(story);
        Act(story, call);
        SCOPED_TRACE("call " + std::to_string(call) + ", " + struck_);
        if (struck_.empty()) {
            EXPECT_GT(call, calls);
            EXPECT_EQ(Outcome(story), good);
            break;
        }
        if (!IsTold(story, good)) {
            EXPECT_EQ(struck_, "IHostPropertySet.Item") << "went by without a word";
            ++probed;
        }
        const std::string found = UserSettings();
        EXPECT_TRUE(found == settings || found == goodSettings) << found;
        ExpectNothingHalfDone();
        story.again(*this);
        Act(story, 0);
        EXPECT_TRUE(desk.Dialogs().messages.empty()) << desk.Dialogs().LastCause();
        EXPECT_EQ(Outcome(story), good);
    }
    EXPECT_LE(probed, kMostProbes);
}

}  // namespace faults
