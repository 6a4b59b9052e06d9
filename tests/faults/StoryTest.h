#pragma once

#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <string>

#include "faults/FaultyHost.h"
#include "support/TestDesk.h"

namespace faults {

class StoryTest;

/// Something that is done with a gazetteer, each of whose calls of the host fails in turn.
struct Story {
    using Step = void (*)(StoryTest&);

    const char* name;
    Step prepare = [](StoryTest&) {};
    Step act;
    /// What there is to do before acting again after a failure.
    Step again = [](StoryTest&) {};
    /// More that must come out the same.
    std::string (*look)() = [] { return std::string(); };
    /// Only each so-many-th call fails, where every pass takes long.
    int stride = 1;

    friend void PrintTo(const Story& story, std::ostream* stream) { *stream << story.name; }
};

/// A linked gazetteer of two pages on the real desk, every call of whose objects is counted and may
/// fail.
class StoryTest : public testing::TestWithParam<Story> {
public:
    StoryTest();

    /// Lets the calls of a story fail one after the other, until a pass meets no fault. Each time
    /// the user must be told, nothing stored may be half done, and the same must work when it is
    /// asked for again.
    void Tell(const Story& story);

    void Bind();
    void Draw(std::int32_t page) { manager->SetIndexToPageNumber(page); }
    /// Adds to what must come out the same.
    void Note(const std::string& answer) { answers_ += answer + '\n'; }

    support::TestDesk desk;
    Faults faults;
    host::Ref<host::IHost> host = MakeFaulty(desk.HostRef(), faults);
    host::Ref<host::IHostGroupElement> element;
    host::Ref<host::IHostGroupElement> other;  ///< With properties of other components alone.
    std::unique_ptr<gazetteer::CVNGazetteerManager> manager;

private:
    void StartAnew(const Story& story);
    void Act(const Story& story, std::int64_t failAt);
    std::string Outcome(const Story& story);
    /// Whether the user was told of the fault, or it did no harm.
    bool IsTold(const Story& story, const std::string& good);
    std::string UserSettings();
    void ExpectNothingHalfDone();

    host::Ref<host::IHostGroupElement> pristine_;
    host::Ref<host::IHostGroupElement> bare_;
    std::string answers_;
    std::string struck_;  ///< The operation that failed last.
    std::int64_t count_ = 0;
};

}  // namespace faults
