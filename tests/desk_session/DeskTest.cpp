#include <filesystem>
#include <gtest/gtest.h>

#include "desk/session/Desk.h"
#include "host/Failure.h"
#include "support/RecordingDialogs.h"
#include "support/TemporaryFolder.h"

namespace {

desk::DeskOptions Options() {
    desk::DeskOptions options;
    options.locale = "en_US";
    options.dialogs = std::make_shared<support::RecordingDialogs>();
    return options;
}

TEST(Desk, ReachesTheOneApplicationAndTellsItsListeners) {
    std::vector<std::string> told;
    auto options = Options();
    options.listeners.statusText = [&](std::int32_t pane, const std::string& text) {
        told.push_back(std::to_string(pane) + " " + text);
    };
    options.listeners.animation = [&](desk::AnimationStep step) {
        told.push_back("step " + std::to_string(static_cast<int>(step)));
    };
    options.listeners.refresh = [&] { told.emplace_back("refresh"); };
    desk::Desk desk(std::move(options));

    EXPECT_EQ(desk.NewApplication()->Document()->ActiveView()->Display(),
              desk.NewApplication()->Document()->ActiveView()->Display());
    const auto bar = desk.NewApplication()->StatusBar();
    bar->SetText(0, "Sorting");
    bar->ProgressAnimation()->Show();
    bar->ProgressAnimation()->Stop();
    desk.NewApplication()->Document()->ActiveView()->Refresh();
    EXPECT_EQ(told, (std::vector<std::string>{"0 Sorting", "step 0", "step 3", "refresh"}));
}

TEST(Desk, RefusesBracketsThatDoNotCloseAndToWorkWithoutDialogs) {
    desk::Desk desk(Options());
    const auto display = desk.NewApplication()->Document()->ActiveView()->Display();
    EXPECT_THROW(display->BeginDrawing(0, -1), host::Failure);
    display->BeginDrawing(display->DeviceContext(), -1);
    display->EndDrawing();
    EXPECT_THROW(display->EndDrawing(), host::Failure);
    auto options = Options();
    options.dialogs = nullptr;
    EXPECT_THROW(desk::Desk{options}, host::Failure);
}

TEST(Desk, FindsFilesByEitherSeparatorAndNoFolders) {
    const support::TemporaryFolder folder;
    std::filesystem::create_directory(folder.File("sub"));
    folder.Write("sub/a.dbf", "");
    desk::Desk desk(Options());
    const std::pair<std::string, bool> paths[] = {{folder.File("sub/a.dbf"), true},
                                                  {folder.Path() + "\\sub\\a.dbf", true},
                                                  {folder.File("sub"), false},
                                                  {folder.File("gone.dbf"), false},
                                                  {"", false}};
    for (const auto& [path, found] : paths) EXPECT_EQ(desk.FileExists(path), found) << path;
}

}  // namespace
