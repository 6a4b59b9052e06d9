#include <filesystem>
#include <gtest/gtest.h>

#include "desk/session/Desk.h"
#include "host/Failure.h"
#include "support/DbfBuilder.h"
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

    desk::Desk silent(Options());
    silent.NewApplication()->StatusBar()->SetText(0, "nobody listens");
    silent.NewApplication()->Document()->ActiveView()->Refresh();
}

TEST(Display, WatchesItsBrackets) {
    desk::Desk desk(Options());
    const auto display = desk.NewApplication()->Document()->ActiveView()->Display();
    EXPECT_NE(display->Device(), 0U);
    EXPECT_TRUE(display->Transformation());
    EXPECT_THROW(display->EndDrawing(), host::Failure);
    EXPECT_THROW(display->BeginDrawing(0, -1), host::Failure);
    display->BeginDrawing(display->Device(), -1);
    display->EndDrawing();
    EXPECT_THROW(display->EndDrawing(), host::Failure);
}

TEST(Desk, FindsFilesByEitherSeparatorAndNoFolders) {
    const support::TemporaryFolder folder;
    std::filesystem::create_directory(folder.File("sub"));
    folder.Write("sub/a.dbf", "");
    desk::Desk desk(Options());
    EXPECT_TRUE(desk.FileExists(folder.File("sub/a.dbf")));
    EXPECT_TRUE(desk.FileExists(folder.Path() + "\\sub\\a.dbf"));
    EXPECT_FALSE(desk.FileExists(folder.File("sub")));
    EXPECT_FALSE(desk.FileExists(folder.File("gone.dbf")));
    EXPECT_FALSE(desk.FileExists(""));
}

TEST(Desk, OpensWhatItSavedAndFollowsItsMapBook) {
    const support::TemporaryFolder folder;
    std::filesystem::create_directory(folder.File("maps"));
    support::DbfBuilder({{"NAME", 'C', 10}})
        .Row({"North"})
        .Row({"Gone"}, true)
        .Row({"South"})
        .Write(folder.File("maps/sheets.dbf"));
    folder.Write("maps/book.json", R"({"currentTemplate": "index", "books": [{"key": "atlas",
        "sections": [{"key": "maps", "name": "Maps", "startPage": 1, "pages": ["sheet$1"],
        "templates": [{"key": "sheet", "name": "Sheet", "layout": [{"kind": "mapFrame",
        "name": "Main", "series": {"indexLayer": "sheets.dbf", "firstPage": 1}}]}]}]}]})");
    const auto path = folder.File("a.json");
    {
        desk::Desk desk(Options());
        desk::Document document;
        document.title = "An index";
        document.mapBook = desk::PathFromDocument(folder.File("maps/book.json"), path);
        document.elements = {desk.NewGroupElement()};
        EXPECT_EQ(document.mapBook, "maps/book.json");
        desk.Start(std::move(document), path);
        desk.Save();
    }
    desk::Desk desk(Options());
    EXPECT_TRUE(std::holds_alternative<host::Empty>(desk.NewLayoutContext()->CurrentTemplateKey()));
    desk.Open(path);
    EXPECT_EQ(desk.CurrentDocument().title, "An index");
    EXPECT_EQ(std::get<std::string>(desk.NewLayoutContext()->CurrentTemplateKey()), "index");
    EXPECT_EQ(desk.NewMapBook()->SectionBook("maps"), "atlas");

    const auto layout =
        host::As<host::IHostElementContainer>(desk.NewMapBook()->TemplateLayout("sheet"));
    const auto manager = desk.NewMapSeriesManager();
    manager->SetFrame(host::As<host::IHostMapFrame>(layout->Next()));
    const auto table = manager->IndexLayer()->Table();
    const auto row = manager->PageFeature(2);
    EXPECT_EQ(desk.NewExpressionEngine()->Evaluate(table, row, "[NAME]!", {}), "South!");
    EXPECT_THROW(manager->PageFeature(3), host::Failure);
}

TEST(Desk, RefusesToStartWithoutDialogs) {
    auto options = Options();
    options.dialogs = nullptr;
    EXPECT_THROW(desk::Desk{std::move(options)}, host::Failure);
}

}  // namespace
