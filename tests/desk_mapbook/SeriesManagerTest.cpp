#include <gtest/gtest.h>

#include "desk/mapbook/SeriesManager.h"
#include "desk/objects/Elements.h"
#include "host/Failure.h"

namespace {

class CountedRow final : public host::IHostRow {
public:
    explicit CountedRow(std::int32_t number) : number_(number) {}
    host::Variant Value(std::int32_t) const override { return number_; }
    void SetValue(std::int32_t, host::Variant) override {}
    std::int32_t OID() const override { return number_; }

private:
    std::int32_t number_;
};

class CountingCursor final : public host::IHostCursor {
public:
    explicit CountingCursor(std::int32_t rows) : rows_(rows) {}
    host::Ref<host::IHostRow> NextRow() override {
        if (next_ == rows_) return nullptr;
        return std::make_shared<CountedRow>(++next_);
    }
    void InsertRow(const host::Ref<host::IHostRow>&) override {}
    void Flush() override {}

private:
    std::int32_t rows_;
    std::int32_t next_ = 0;
};

/// Three rows, and a count of how often they were asked for.
class ThreeRows final : public host::IHostTable {
public:
    host::Ref<host::IHostFields> Fields() const override { return nullptr; }
    std::int32_t FindField(const std::string&) const override { return -1; }
    host::Ref<host::IHostCursor> Search(const host::Ref<host::IHostQueryFilter>&,
                                        bool recycling) override {
        ++searches;
        EXPECT_FALSE(recycling) << "rows are kept, so each must be an object of its own";
        return std::make_shared<CountingCursor>(3);
    }
    host::Ref<host::IHostCursor> Insert(bool) override { return nullptr; }
    host::Ref<host::IHostRow> CreateRowBuffer() override { return nullptr; }

    int searches = 0;
};

host::Ref<host::IHostMapFrame> Frame(const std::string& layer) {
    auto frame = std::make_shared<desk::SeriesFrame>(desk::Series{layer, 7, {}});
    frame->SetName("Main map");
    return frame;
}

TEST(SeriesManager, TellsSeriesFramesFromOthers) {
    desk::SeriesManager manager([](const std::string&) { return nullptr; });
    const auto plain = std::make_shared<desk::MapFrame>();
    EXPECT_FALSE(manager.IsSeriesFrame(plain));
    EXPECT_FALSE(manager.IsSeriesFrame(nullptr));
    EXPECT_FALSE(manager.HasIndexLayer(plain));
    EXPECT_TRUE(manager.IsSeriesFrame(Frame("")));
    EXPECT_FALSE(manager.HasIndexLayer(Frame("")));
    EXPECT_TRUE(manager.HasIndexLayer(Frame("a.dbf")));
}

TEST(SeriesManager, GivesTheRowOfEachPageAndReadsTheTableOnce) {
    const auto table = std::make_shared<ThreeRows>();
    std::vector<std::string> opened;
    desk::SeriesManager manager([&](const std::string& path) {
        opened.push_back(path);
        return table;
    });
    manager.SetFrame(Frame("maps/sheets.dbf"));
    EXPECT_EQ(std::get<std::int32_t>(manager.FirstPageNumber()), 7);
    EXPECT_EQ(manager.IndexLayer()->Table(), table);
    for (const std::int32_t page : {3, 1, 2, 1}) EXPECT_EQ(manager.PageFeature(page)->OID(), page);
    EXPECT_EQ(table->searches, 1);
    EXPECT_EQ(opened, std::vector<std::string>{"maps/sheets.dbf"});
    for (const std::int32_t page : {0, 4, -1}) {
        try {
            manager.PageFeature(page);
            ADD_FAILURE() << page;
        } catch (const host::Failure& failure) {
            EXPECT_EQ(failure.description,
                      "The index layer \"sheets.dbf\" of the frame \"Main map\" has 3 rows and "
                      "none for page " +
                          std::to_string(page) + ".");
        }
    }
}

TEST(SeriesManager, FailsWithoutWhatACallNeeds) {
    desk::SeriesManager manager([](const std::string&) { return nullptr; });
    EXPECT_THROW(manager.FirstPageNumber(), host::Failure);
    manager.SetFrame(std::make_shared<desk::MapFrame>());
    EXPECT_THROW(manager.FirstPageNumber(), host::Failure);
    manager.SetFrame(Frame(""));
    EXPECT_NO_THROW(manager.FirstPageNumber());
    EXPECT_THROW(manager.IndexLayer(), host::Failure);
    EXPECT_THROW(manager.PageFeature(1), host::Failure);
    manager.ClearFrame();
    EXPECT_THROW(manager.FirstPageNumber(), host::Failure);
}

}  // namespace
