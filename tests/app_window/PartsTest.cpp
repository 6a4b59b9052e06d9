#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <algorithm>
#include <chrono>
#include <tuple>

#include "app/window/PageFinder.h"
#include "app/window/PageTiles.h"
#include "app/window/StatusPanes.h"
#include "app_window/WindowStory.h"
#include "host/StepCounts.h"
#include "model/Settings.h"

namespace {

// Sanitizers and unoptimised code, which tests always are, take their time.
constexpr int kSlowdown = 20;

class Parts : public window_test::WindowStory {};

QImage Filled(QSize size, Qt::GlobalColor color) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

TEST_F(Parts, TilesShowNoSeams) {
    Make(Table("names.dbf", 300));
    auto& desk = Session().Document().TheDesk();
    const auto picture = std::make_shared<app::PagePicture>(desk.CurrentDocument(), *desk.Text());
    for (const double pixelsPerInch : {61.7, 96.0, 350.0}) {
        app::PageTiles tiles;
        tiles.SetPicture(picture);
        tiles.SetPixelsPerInch(pixelsPerInch);
        const QImage white = Filled(tiles.Size(), Qt::white);
        QImage whole = white;
        picture->Paint(whole, {0, 0}, pixelsPerInch);
        QImage tiled = Filled(tiles.Size(), Qt::red);
        QPainter painter(&tiled);
        tiles.Paint(painter, tiled.rect());
        painter.end();
        EXPECT_EQ(tiled, whole) << pixelsPerInch;
        EXPECT_NE(whole, white) << "the head's letters are there";
    }
}

TEST_F(Parts, TheManualIsPartOfTheProgram) {
    Do("manual");
    auto& text = Find<QTextBrowser>("manualText");
    EXPECT_TRUE(text.toPlainText().contains("What each finding means"));
    text.setSource(QUrl("#what-each-finding-means-and-what-helps"));
    EXPECT_EQ(text.textCursor().block().text(), "What each finding means, and what helps");
    EXPECT_EQ(text.horizontalScrollBar()->maximum(), 0);
    text.setSource(QUrl("alphabets.md"));
    EXPECT_TRUE(text.toPlainText().contains("From right to left"));
    EXPECT_FALSE(text.loadResource(QTextDocument::ImageResource, QUrl("pictures/scripts-page.png"))
                     .isNull());
}

// 2000 pages of 50 listings, the last of which stands on a page of its own.
gazetteer::WorkingResults ManyResults(host::IHost& host) {
    gazetteer::WorkingResults results;
    results.listings = host.NewPropertySet();
    results.pageGroups = host.NewPropertySet();
    results.pageCount = 2001;
    const auto names = host.NewPropertySet();
    for (int page = 1; page <= 2001; ++page) {
        const auto group = host.NewPropertySet();
        for (int i = 50 * (page - 1); i < std::min(50 * page, 100001); ++i) {
            const std::string key = std::to_string(i);
            names->SetItem(key, i < 100000 ? " Place " + key + "$$DOTS" : "\u017Dilina");
            group->SetItem(key, key);
        }
        results.pageGroups->SetItem(std::to_string(page), host::Ref<host::IHostObject>(group));
    }
    results.listings->SetItem("Listing", host::Ref<host::IHostObject>(names));
    return results;
}

TEST_F(Parts, AHundredThousandListingsAreSearchedWhileTyping) {
    using Clock = std::chrono::steady_clock;
    constexpr auto kUnnoticed = std::chrono::milliseconds(50) * kSlowdown;
    app::PageFinder finder;
    finder.SetResults(ManyResults(Session().Host()));
    for (bool more = true; more;) {
        const auto begin = Clock::now();
        more = finder.ReadOn(std::chrono::milliseconds(10));
        EXPECT_LT(Clock::now() - begin, kUnnoticed);
    }
    const std::tuple<const char*, std::vector<int>, const char*> searches[] = {
        {"zilina", {2001}, "\u017Dilina"},
        {"PLACE 99999", {2000}, "Place 99999"},
        {"place  4999", {100, 1000}, "Place 4999"},
        {"2001", {41, 241}, "Place 2001"},
        {"dots", {}, ""}};
    for (const auto& [text, firstPages, listing] : searches) {
        const auto begin = Clock::now();
        const auto hits = finder.Find(text);
        EXPECT_LT(Clock::now() - begin, kUnnoticed);
        ASSERT_GE(hits.size(), firstPages.size()) << text;
        for (std::size_t i = 0; i < firstPages.size(); ++i)
            EXPECT_EQ(hits[i].page, firstPages[i]) << text;
        EXPECT_EQ(hits.empty() ? "" : hits[0].listing, listing) << text;
    }
    EXPECT_EQ(finder.Find("2001").back().page, 2001);  // By its number.
}

TEST_F(Parts, TheStatusBarIsLiveDuringARun) {
    auto& status = dynamic_cast<app::StatusPanes&>(*window_->statusBar());
    status.ShowResult("done before");
    status.ShowAnimation(desk::AnimationStep::Show);
    status.ShowAnimation(desk::AnimationStep::Play);
    EXPECT_TRUE(status.Sign().Shown() && status.Sign().Playing());
    const auto bar = Session().Host().NewApplication()->StatusBar();
    const auto expectShown = [&](const char* text, const char* shown) {
        bar->SetText(0, text);
        EXPECT_EQ(Status(), shown) << text;
    };
    expectShown("Listing 1", "Listing 1");
    // Texts that only count on are shown now and then.
    expectShown("Listing 2", "Listing 1");
    expectShown("Sorting.", "Sorting.");
    bar->SetText(1, "another pane");
    QTest::qSleep(80);
    host::As<host::IHostStepCounts>(bar)->SetStep(3, 8);
    expectShown("Listing 70", "Listing 3 of 8 (37 %)");
    status.ShowAnimation(desk::AnimationStep::Hide);
    status.ShowAnimation(desk::AnimationStep::Stop);
    EXPECT_FALSE(status.Sign().Shown() || status.Sign().Playing());
    expectShown("", "done before");
}

}  // namespace
