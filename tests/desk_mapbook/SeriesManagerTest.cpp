#include <gtest/gtest.h>

#include "desk/mapbook/SeriesManager.h"
#include "desk/objects/Elements.h"
#include "desk/tables/Scratch.h"
#include "host/Failure.h"
#include "support/FailureOf.h"

namespace {

host::Ref<host::IHostMapFrame> Frame(const std::string& layer) {
    auto frame = std::make_shared<desk::SeriesFrame>(desk::Series{layer, 7, {}});
    frame->SetName("Main map");
    return frame;
}

TEST(SeriesManager, GivesTheRowOfEachPageAndReadsTheTableOnce) {
    const auto table = std::make_shared<desk::ScratchTable>("sheets", nullptr);
    for (int i = 0; i < 3; ++i) table->Insert(true)->InsertRow(table->CreateRowBuffer());
    std::vector<std::string> opened;
    desk::SeriesManager manager([&](const std::string& path) {
        opened.push_back(path);
        return table;
    });
    manager.SetFrame(Frame("maps/sheets.dbf"));
    EXPECT_EQ(std::get<std::int32_t>(manager.FirstPageNumber()), 7);
    EXPECT_EQ(manager.IndexLayer()->Table(), table);
    for (const std::int32_t page : {3, 1, 2, 1}) EXPECT_EQ(manager.PageFeature(page)->OID(), page);
    EXPECT_EQ(opened, std::vector<std::string>{"maps/sheets.dbf"});
    for (const std::int32_t page : {0, 4, -1})
        EXPECT_EQ(
            support::FailureOf([&] { manager.PageFeature(page); }).description,
            "The index layer \"sheets.dbf\" of the frame \"Main map\" has 3 rows and none for "
            "page " +
                std::to_string(page) + ".");
}

TEST(SeriesManager, FailsWithoutWhatACallNeeds) {
    desk::SeriesManager manager([](const std::string&) { return nullptr; });
    const auto plain = std::make_shared<desk::MapFrame>();
    EXPECT_FALSE(manager.IsSeriesFrame(nullptr) || manager.IsSeriesFrame(plain));
    EXPECT_FALSE(manager.HasIndexLayer(plain) || manager.HasIndexLayer(Frame("")));
    EXPECT_TRUE(manager.IsSeriesFrame(Frame("")) && manager.HasIndexLayer(Frame("a.dbf")));
    manager.SetFrame(plain);
    EXPECT_THROW(manager.FirstPageNumber(), host::Failure);
    manager.SetFrame(Frame(""));
    EXPECT_NO_THROW(manager.FirstPageNumber());
    EXPECT_THROW(manager.IndexLayer(), host::Failure);
    EXPECT_THROW(manager.PageFeature(1), host::Failure);
    manager.ClearFrame();
    EXPECT_THROW(manager.FirstPageNumber(), host::Failure);
}

}  // namespace
