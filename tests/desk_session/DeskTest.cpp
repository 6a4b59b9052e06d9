#include <gtest/gtest.h>

#include "host/Failure.h"
#include "support/TestDesk.h"

namespace {

TEST(Desk, ReachesTheOneApplicationAndTellsItsListeners) {
    std::vector<std::string> told;
    desk::DeskOptions options;
    options.listeners.statusText = [&](std::int32_t pane, const std::string& text) {
        told.push_back(std::to_string(pane) + " " + text);
    };
    options.listeners.animation = [&](desk::AnimationStep step) {
        told.push_back("step " + std::to_string(static_cast<int>(step)));
    };
    options.listeners.refresh = [&] { told.emplace_back("refresh"); };
    support::TestDesk desk(options);

    EXPECT_EQ(desk.Display(), desk.Display());
    const auto bar = desk.Host().NewApplication()->StatusBar();
    bar->SetText(0, "Sorting");
    bar->ProgressAnimation()->Show();
    bar->ProgressAnimation()->Stop();
    desk.Host().NewApplication()->Document()->ActiveView()->Refresh();
    EXPECT_EQ(told, (std::vector<std::string>{"0 Sorting", "step 0", "step 3", "refresh"}));
}

TEST(Desk, RefusesBracketsThatDoNotCloseAndToWorkWithoutDialogs) {
    support::TestDesk desk;
    const auto display = desk.Display();
    EXPECT_THROW(display->BeginDrawing(0, -1), host::Failure);
    display->BeginDrawing(display->DeviceContext(), -1);
    display->EndDrawing();
    EXPECT_THROW(display->EndDrawing(), host::Failure);
    EXPECT_THROW(desk::Desk{desk::DeskOptions()}, host::Failure);
}

TEST(Desk, FindsFilesByEitherSeparatorAndNoFolders) {
    support::TestDesk desk;
    const auto table = desk.ListingTable({});
    for (const auto& path : {table, desk.Folder() + "\\" + table.substr(desk.Folder().size() + 1)})
        EXPECT_TRUE(desk.Host().FileExists(path)) << path;
    for (const auto& path : {desk.Folder(), desk.Folder() + "/gone.dbf", std::string()})
        EXPECT_FALSE(desk.Host().FileExists(path)) << path;
}

}  // namespace
