#include <gtest/gtest.h>

#include "support/ErrorHandling.h"
#include "support/RecordingDialogs.h"

using support::RecordingDialogs;

namespace gazetteer {
namespace {

constexpr int kLineOfTheRaise = __LINE__ + 2;

void Innermost() try { Raise("Unit.Innermost", "The wheel is off."); } catch (...) {
    PassOn("Innermost", "Unit");
}

void Middle() try { Innermost(); } catch (...) {
    PassOn("Middle", "Unit");
}

void Top(RecordingDialogs& dialogs, void (*body)()) try { body(); } catch (...) {
    ShowAtTop(dialogs, "Top", "Unit");
}

constexpr char kHead[] =
    "An error has occured in the application.   Record the call stack sequence\r\n"
    "and the description of the error.\r\n\r\nError Call Stack Sequence \r\n\t";

TEST(Failures, StackRunsFromOutermostToInnermostWithOneBlock) {
    RecordingDialogs dialogs;
    Top(dialogs, Middle);
    ASSERT_EQ(dialogs.messages.size(), 1U);
    const auto& message = dialogs.messages[0];
    EXPECT_EQ(message.title, "Unexpected Program Error");
    EXPECT_EQ(message.style, 48);
    EXPECT_EQ(dialogs.beeps, 1);
    // Only the procedure nearest to the raise has a line.
    EXPECT_EQ(message.text, std::string(kHead) +
                                "Top Unit \r\n\tMiddle Unit \r\n\tInnermost Unit Line : " +
                                std::to_string(kLineOfTheRaise) +
                                "\r\n"
                                "\r\nError Number \r\n\t-2147220991\r\nDescription\r\n\t"
                                "The wheel is off.\r\n\r\n");
}

TEST(Failures, FailureInTheTopProcedureItselfHasOneStackLine) {
    RecordingDialogs dialogs;
    Top(dialogs, [] { throw host::Failure(-5, "host", "No paper."); });
    EXPECT_EQ(dialogs.messages.at(0).text,
              std::string(kHead) +
                  "Top Unit \r\n\r\nError Number \r\n\t-5\r\nDescription\r\n\t"
                  "No paper.\r\n\r\n");
}

TEST(Failures, SwallowedErrorDoesNotRobTheNextOfItsBlock) {
    RecordingDialogs dialogs;
    try {
        Middle();
    } catch (const host::Failure&) {
    }
    Top(dialogs, [] { throw std::runtime_error("Second."); });
    EXPECT_NE(dialogs.messages.at(0).text.find("Description\r\n\tSecond."), std::string::npos);
    EXPECT_EQ(dialogs.LastCause(), "Second.");
}

}  // namespace
}  // namespace gazetteer
