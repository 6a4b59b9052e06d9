#include <functional>
#include <gtest/gtest.h>
#include <new>

#include "support/ErrorHandling.h"
#include "support/RecordingDialogs.h"

namespace gazetteer {
namespace {

constexpr int kLineOfTheRaise = __LINE__ + 2;

void Innermost() try { Raise("Unit.Innermost", "The wheel is off."); } catch (...) {
    PassOn("Innermost", "Unit");
}

void Middle() try { Innermost(); } catch (...) {
    PassOn("Middle", "Unit");
}

void Top(support::RecordingDialogs& dialogs, const std::function<void()>& body) try {
    body();
} catch (...) {
    ShowAtTop(dialogs, "Top", "Unit");
}

TEST(Failures, AreShownOnceWithTheStackFromOutermostToInnermost) {
    const std::string raised = " Line : " + std::to_string(kLineOfTheRaise);
    using Case = std::tuple<std::function<void()>, std::string, const char*, const char*>;
    const Case cases[] = {
        // Only the procedure nearest to the raise has a line.
        {Middle, "\tMiddle Unit \r\n\tInnermost Unit" + raised + "\r\n", "-2147220991",
         "The wheel is off."},
        {[] { throw host::Failure(-5, "host", "No paper."); }, "", "-5", "No paper."},
        {[] { throw std::runtime_error("Second."); }, "", "-2147467259", "Second."},
        {[] { throw std::bad_alloc(); }, "", "-2147024882", "Out of memory."},
    };
    for (const auto& [body, stack, number, cause] : cases) {
        // One that somebody swallowed does not rob the next of its block.
        EXPECT_THROW(Middle(), host::Failure);
        support::RecordingDialogs dialogs;
        Top(dialogs, body);
        ASSERT_EQ(dialogs.messages.size(), 1U) << cause;
        const auto& message = dialogs.messages[0];
        EXPECT_EQ(message.title, "Unexpected Program Error");
        EXPECT_EQ(message.style, 48);
        EXPECT_EQ(message.cause, cause);
        EXPECT_EQ(dialogs.beeps, 1);
        EXPECT_EQ(message.text,
                  "An error has occured in the application.   Record the call stack sequence\r\n"
                  "and the description of the error.\r\n\r\nError Call Stack Sequence \r\n\t"
                  "Top Unit \r\n" +
                      stack + "\r\nError Number \r\n\t" + number + "\r\nDescription\r\n\t" + cause +
                      "\r\n\r\n");
    }
}

}  // namespace
}  // namespace gazetteer
