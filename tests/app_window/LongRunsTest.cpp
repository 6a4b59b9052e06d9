#include <QElapsedTimer>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <ctime>
#include <thread>

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
    /// Runs. Returns how long that took, in milliseconds.
    qint64 Refresh() {
        QElapsedTimer clock;
        clock.start();
        Do("refresh");
        return length_ = clock.elapsed();
    }
    /// Of the last run, in milliseconds.
    qint64 Length() const { return length_; }
    /// Runs, with Escape pressed after some milliseconds. Returns how many of the processor's the
    /// program works on from then on, which other programs do not change.
    qint64 RefreshUntilKey(qint64 keyAfter) {
        QTimer key;
        key.setSingleShot(true);
        key.callOnTimeout(window_.get(), [this] { support::Escape(*window_); });
        // The run may be too busy to see the moment itself.
        std::clock_t atKey = 0;
        std::thread watch([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(keyAfter));
            atKey = std::clock();
        });
        key.start(static_cast<int>(keyAfter));
        Refresh();
        const std::clock_t atEnd = std::clock();
        watch.join();
        return qint64{1000} * std::max<std::clock_t>(0, atEnd - atKey) / CLOCKS_PER_SEC;
    }

private:
    qint64 length_ = 0;
};

// The moments are spread over the whole run. Near its end the run itself may end first.
TEST_F(LongRuns, EndWithinASecondOfTheKeyAtAnyMoment) {
    constexpr qint64 kMoments = 24;
    MakeSaved(Table("names.dbf", 900), "names.json");
    const auto drawn = DrawnListings();
    Table("names.dbf", 1'000'000);
    OpenStored();
    qint64 length = Refresh();
    EXPECT_EQ(Status().substr(0, 15), "1000000 records");
    OpenStored();

    qint64 longest = 0;
    int cancelled = 0;
    for (qint64 moment = 1; moment < kMoments; ++moment) {
        const qint64 after = length * moment / kMoments;
        const qint64 rest = RefreshUntilKey(after);
        EXPECT_LT(rest, 1000) << "after " << after << " of " << length << " ms";
        longest = std::max(longest, rest);
        if (WasCancelled()) {
            ++cancelled;
        } else {
            // A later run may be shorter: of less load, or with the table in memory.
            length = std::min(length, Length());
            OpenStored();
        }
        EXPECT_EQ(DrawnListings(), drawn) << after;
    }
    EXPECT_GT(cancelled, kMoments * 3 / 4);
    std::printf("%lld ms, cancelled after %lld ms at the most\n", length, longest);
}

}  // namespace
