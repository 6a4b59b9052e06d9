#include "faults/StoryTest.h"

/// What the manager does, with every call of the host failing in turn.
namespace {

using faults::Story;
using faults::StoryTest;

class HostFaults : public StoryTest {};

TEST_P(HostFaults, AreToldAndLoseNothing) {
    Tell(GetParam());
}

const Story kStories[] = {
    {"Check", 2, [](StoryTest&) {},
     [](StoryTest& h) { h.Note(h.manager->CanDrawIndex(h.element) ? "drawable" : "not"); }},
    {"BindAndRun", 4, [](StoryTest&) {}, [](StoryTest& h) { h.Bind(); }},
    {"Reload", 4, [](StoryTest& h) { h.Bind(); }, [](StoryTest& h) { h.Bind(); }},
    {"DrawAPage", 0,
     [](StoryTest& h) {
         h.Bind();
         h.Draw(1);
     },
     [](StoryTest& h) { h.Draw(2); }},
    {"Draft", 0,
     [](StoryTest& h) {
         h.Bind();
         h.Draw(1);
     },
     [](StoryTest& h) { h.manager->DraftMode(); }},
    {"Queries", 0, [](StoryTest& h) { h.Bind(); },
     [](StoryTest& h) {
         h.manager->SetDefaultPageNumber(2);
         h.Note(std::to_string(std::get<std::int32_t>(h.manager->PageCount())));
         for (std::int32_t page = 1; page <= 2; ++page) {
             h.Note(h.manager->FirstListing(page) + '|' + h.manager->LastListing(page));
             if (const auto name = h.manager->PageName(page);
                 const auto* text = std::get_if<std::string>(&name))
                 h.Note(*text);
         }
     }},
    {"PutOnAndTakeOff", 3, [](StoryTest&) {},
     [](StoryTest& h) {
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
