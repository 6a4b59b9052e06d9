#include <QPainter>
#include <algorithm>
#include <chrono>

#include "app/window/PageFinder.h"
#include "app/window/PageTiles.h"
#include "app/window/StatusPanes.h"
#include "app_window/WindowStory.h"
#include "model/Settings.h"

namespace {

using window_test::WindowStory;

// Sanitizers and unoptimised code take their time.
#if defined(__SANITIZE_ADDRESS__) || !defined(__OPTIMIZE__)
constexpr int kSlowdown = 20;
#else
constexpr int kSlowdown = 4;
#endif

class Parts : public WindowStory {
public:
    std::shared_ptr<const app::PagePicture> Picture() const {
        auto& desk = Layout().TheDesk();
        return std::make_shared<app::PagePicture>(desk.CurrentDocument(), *desk.Text());
    }
};

TEST_F(Parts, TilesShowNoSeams) {
    Make(Table("names.dbf", 300));
    const auto picture = Picture();
    for (const double pixelsPerInch : {61.7, 96.0, 350.0}) {
        app::PageTiles tiles;
        tiles.SetPicture(picture);
        tiles.SetPixelsPerInch(pixelsPerInch);
        const QSize size = tiles.Size();
        QImage whole(size, QImage::Format_RGB32);
        picture->Paint(whole, {0, 0}, pixelsPerInch);
        QImage tiled(size, QImage::Format_RGB32);
        tiled.fill(Qt::red);
        QPainter painter(&tiled);
        tiles.Paint(painter, QRect(QPoint(0, 0), size));
        painter.end();
        EXPECT_EQ(tiled, whole) << pixelsPerInch;
        // The head's letters are there.
        QImage white(size, QImage::Format_RGB32);
        white.fill(Qt::white);
        EXPECT_NE(whole, white);
    }
}

// 2000 pages of 50 listings, the last of which stands on a page of its own.
gazetteer::WorkingResults ManyResults(host::IHost& host) {
    gazetteer::WorkingResults results;
    results.listings = host.NewPropertySet();
    results.pageGroups = host.NewPropertySet();
    results.pageCount = 2001;
    const auto names = host.NewPropertySet();
    const auto add = [&](int page, const std::string& key, const std::string& name) {
        names->SetItem(key, name);
        const std::string number = std::to_string(page);
        if (results.pageGroups->Count() < page)
            results.pageGroups->SetItem(number,
                                        host::Ref<host::IHostObject>(host.NewPropertySet()));
        gazetteer::SetUnder(*results.pageGroups, number)->SetItem(key, key);
    };
    for (int i = 0; i < 100000; ++i)
        add(1 + i / 50, std::to_string(i), " Place " + std::to_string(i) + "$$DOTS");
    add(2001, "last", "\u017Dilina");
    results.listings->SetItem("Listing", host::Ref<host::IHostObject>(names));
    return results;
}

TEST_F(Parts, AHundredThousandListingsAreSearchedWhileTyping) {
    app::PageFinder finder;
    finder.SetResults(ManyResults(Layout().Host()));
    auto longest = std::chrono::steady_clock::duration::zero();
    for (bool more = true; more;) {
        const auto begin = std::chrono::steady_clock::now();
        more = finder.ReadOn(std::chrono::milliseconds(10));
        longest = std::max(longest, std::chrono::steady_clock::now() - begin);
    }
    EXPECT_LT(longest, std::chrono::milliseconds(50) * kSlowdown);
    struct Search {
        const char* text;
        std::vector<int> pages;
        const char* listing;
    };
    for (const Search& search :
         {Search{"zilina", {2001}, "\u017Dilina"}, Search{"PLACE 99999", {2000}, "Place 99999"},
          Search{"place  4999", {100, 1000}, "Place 4999"}, Search{"2001", {41, 241}, "Place 2001"},
          Search{"dots", {}, ""}}) {
        const auto hits = finder.Find(search.text);
        std::vector<int> pages;
        for (const auto& hit : hits) pages.push_back(hit.page);
        if (pages.size() > 2) pages.resize(search.pages.size());
        EXPECT_EQ(pages, search.pages) << search.text;
        EXPECT_EQ(hits.empty() ? "" : hits[0].listing, search.listing);
    }
    EXPECT_EQ(finder.Find("2001").back().page, 2001);  // By its number.
    const auto begin = std::chrono::steady_clock::now();
    finder.Find("ace 1");
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(50) * kSlowdown);
}

TEST_F(Parts, TheStatusBarIsLiveDuringARun) {
    auto& status = *window_->findChild<app::StatusPanes*>();
    status.ShowResult("done before");
    status.ShowAnimation(desk::AnimationStep::Show);
    status.ShowAnimation(desk::AnimationStep::Play);
    EXPECT_TRUE(status.Sign().Shown() && status.Sign().Playing());
    status.ShowRunText(0, "Sorting.");
    EXPECT_EQ(Status(), "Sorting.");
    status.ShowRunText(1, "another pane");
    EXPECT_EQ(Status(), "Sorting.");
    // Texts that only count on are shown now and then.
    status.ShowRunText(0, "Listing 1");
    EXPECT_EQ(Status(), "Sorting.");
    QTest::qSleep(80);
    status.ShowRunText(0, "Listing 2");
    EXPECT_EQ(Status(), "Listing 2");
    status.ShowAnimation(desk::AnimationStep::Hide);
    status.ShowAnimation(desk::AnimationStep::Stop);
    EXPECT_FALSE(status.Sign().Shown() || status.Sign().Playing());
    status.ShowRunText(0, "");
    EXPECT_EQ(Status(), "done before");
}

}  // namespace
