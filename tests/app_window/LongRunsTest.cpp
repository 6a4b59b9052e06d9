#include <QElapsedTimer>
#include <QTest>
#include <algorithm>

#include "app_window/WindowStory.h"

namespace {

class LongRuns : public window_test::WindowStory {
public:
    /// Opens the document with stored results, which the next refresh does not use.
    void OpenStored() {
        Open(folder_.File("names.json"));
        Session().Document().Properties()->SetItem("HaveSavedListings", false);
    }
    bool WasCancelled() const { return Find<QLabel>("noticeText").text().contains("cancelled"); }
    /// Runs, with Escape pressed after some time. Returns how long the run took, in milliseconds.
    qint64 Refresh(qint64 keyAfter) {
        QTimer key;
        key.setSingleShot(true);
        key.callOnTimeout(window_.get(), [this] { support::Escape(*window_); });
        QElapsedTimer clock;
        clock.start();
        key.start(static_cast<int>(keyAfter));
        Do("refresh");
        return clock.elapsed();
    }
};

// The moments are spread over the whole run. Near its end the run itself may end first.
TEST_F(LongRuns, EndWithinASecondOfTheKeyAtAnyMoment) {
    constexpr qint64 kMoments = 24;
    constexpr qint64 kNever = 3'600'000;
    MakeSaved(Table("names.dbf", 900), "names.json");
    const auto drawn = DrawnListings();
    Table("names.dbf", 1'000'000);
    OpenStored();
    const qint64 length = Refresh(kNever);
    EXPECT_EQ(Status().substr(0, 15), "1000000 records");
    OpenStored();

    qint64 longest = 0;
    int cancelled = 0;
    for (qint64 moment = 1; moment < kMoments; ++moment) {
        const qint64 after = length * moment / kMoments;
        const qint64 rest = Refresh(after) - after;
        EXPECT_LT(rest, 1000) << "after " << after << " of " << length << " ms";
        longest = std::max(longest, rest);
        if (WasCancelled())
            ++cancelled;
        else
            OpenStored();
        EXPECT_EQ(DrawnListings(), drawn) << after;
    }
    EXPECT_GT(cancelled, kMoments * 3 / 4);
    std::printf("%lld ms, cancelled after %lld ms at the most\n", length, longest);
}

}  // namespace
