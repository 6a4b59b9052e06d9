#include "faults/StoryTest.h"

/// What the manager does, with every call of the host failing in turn.
namespace {

using faults::Story;
using faults::StoryTest;

class HostFaults : public StoryTest {};

TEST_P(HostFaults, AreToldAndLoseNothing) {
    Tell(GetParam());
}

void Bind(StoryTest& h) {
    h.Bind();
}

void DrawFirst(StoryTest& h) {
    h.Bind();
    h.Draw(1);
}

void Ask(StoryTest& h) {
    h.manager->SetDefaultPageNumber(2);
    h.Note(std::to_string(std::get<std::int32_t>(h.manager->PageCount())));
    for (std::int32_t page = 1; page <= 2; ++page) {
        h.Note(h.manager->FirstListing(page) + '|' + h.manager->LastListing(page));
        const auto name = h.manager->PageName(page);
        if (const auto* text = std::get_if<std::string>(&name)) h.Note(*text);
    }
}

void PutOnAndTakeOff(StoryTest& h) {
    const auto noteOther = [&] { h.Note(h.manager->IsGazetteerElement(h.other) ? "on" : "off"); };
    const auto fresh = h.manager->MakeGazetteerProperties();
    if (fresh) h.manager->AddGazetteerProperties(h.other, fresh);
    noteOther();
    h.manager->RemoveGazetteerProperties(h.other);
    noteOther();
}

const Story kStories[] = {
    {.name = "Check",
     .act = [](StoryTest& h) { h.Note(h.manager->CanDrawIndex(h.element) ? "drawable" : "not"); }},
    {.name = "BindAndRun", .act = Bind},
    {.name = "Reload", .prepare = Bind, .act = Bind},
    {.name = "DrawAPage", .prepare = DrawFirst, .act = [](StoryTest& h) { h.Draw(2); }},
    {.name = "Draft", .prepare = DrawFirst, .act = [](StoryTest& h) { h.manager->DraftMode(); }},
    {.name = "Queries", .prepare = Bind, .act = Ask},
    {.name = "PutOnAndTakeOff", .act = PutOnAndTakeOff},
};

INSTANTIATE_TEST_SUITE_P(AllOf, HostFaults, testing::ValuesIn(kStories),
                         testing::PrintToStringParamName());

}  // namespace
