#include <gtest/gtest.h>

#include "support/OffscreenApplication.h"

/// Runs tests of widgets.
int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    const support::OffscreenApplication application(count, arguments, "tests");
    return RUN_ALL_TESTS();
}
