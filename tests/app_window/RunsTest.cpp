#include <QListWidget>
#include <QProgressBar>
#include <QRadioButton>
#include <QRegularExpression>
#include <set>
#include <tuple>

#include "app_window/WindowStory.h"
#include "model/Settings.h"
#include "support/Text.h"

namespace {

using window_test::Answer;

/// A saved document of 900 listings, whose second page is on show.
class Runs : public window_test::WindowStory {
public:
    Runs() {
        MakeSaved(Table("names.dbf", 900), "names.json");
        Do("nextPage");
        drawn_ = DrawnListings();
        stored_ = StoredNames();
    }

    /// Makes the table so long that a run of it takes longer than the delay of the run dialog, and
    /// the next refresh run it.
    void Lengthen(int listings) const {
        Table("names.dbf", listings);
        Session().Document().Properties()->SetItem("HaveSavedListings", false);
    }
    std::vector<std::string> StoredNames() const {
        return Session().Document().Properties()->AllItems().names;
    }
    void ExpectAsBefore(const std::string& how) const {
        EXPECT_EQ(Session().Page(), 2) << how;
        EXPECT_EQ(DrawnListings(), drawn_) << how;
        EXPECT_EQ(StoredNames(), stored_) << how;
        EXPECT_TRUE(Find<QLabel>("noticeText").text().contains("cancelled")) << how;
        EXPECT_FALSE(window_->isWindowModified()) << how;
        EXPECT_EQ(RunDialog(), nullptr) << how;
    }

    static QWidget* RunDialog() {
        for (QWidget* const top : QApplication::topLevelWidgets())
            if (top->objectName() == "runDialog" && top->isVisible()) return top;
        return nullptr;
    }
    /// Acts on the run dialog once it knows how far the run is.
    void WhenRunning(const Answer& act) {
        auto* timer = new QTimer(window_.get());
        QObject::connect(timer, &QTimer::timeout, window_.get(), [=, this] {
            QWidget* const dialog = RunDialog();
            if (dialog == nullptr) return;
            const QString text = support::Part<QLabel>(*dialog, "runText").text();
            if (!text.contains('%')) return;
            timer->deleteLater();
            timer->stop();
            ++dialogs_;
            const int percent = dialog->findChild<QProgressBar*>()->value();
            EXPECT_TRUE(text.endsWith(QString("(%1 %)").arg(percent))) << text.toStdString();
            act(*dialog);
        });
        timer->start(1);
    }

    std::vector<std::string> drawn_;
    std::vector<std::string> stored_;
    int dialogs_ = 0;
};

/// The texts of a label that were painted.
class PaintedTexts : public QObject {
public:
    explicit PaintedTexts(QLabel& label) : QObject(&label) { label.installEventFilter(this); }

    bool eventFilter(QObject* label, QEvent* event) override {
        if (event->type() == QEvent::Paint) texts << static_cast<QLabel*>(label)->text();
        return false;
    }

    QStringList texts;
};

TEST_F(Runs, CountRecordsAndListingsAndTellThePercentage) {
    constexpr int kListings = 40000;
    Lengthen(kListings);
    const auto& painted = *new PaintedTexts(Find<QLabel>("statusText"));
    Do("refresh");
    std::set<QString> stages;
    static const QRegularExpression kCounts("^([^0-9]+) (\\d+) of (\\d+) \\((\\d+) %\\)$");
    for (const QString& text : painted.texts) {
        const auto counts = kCounts.match(text);
        if (!counts.hasMatch()) continue;
        const int step = counts.captured(2).toInt();
        const int steps = counts.captured(3).toInt();
        EXPECT_LE(step, steps) << text.toStdString();
        EXPECT_EQ(counts.captured(4).toInt(), step * 100 / steps) << text.toStdString();
        EXPECT_LE(steps, kListings) << text.toStdString();
        stages.insert(counts.captured(1));
    }
    // A stage may be over before its count is painted.
    EXPECT_FALSE(stages.empty());
    EXPECT_EQ(Status().substr(0, 13), "40000 records");
}

// A run ends at the first look at the events after the key; keys before that have no effect.
TEST_F(Runs, ThatAreCancelledLeaveTheDocumentAsItWas) {
    const auto escape = [this] {
        QTimer::singleShot(0, [this] {
            QTest::keyClick(window_.get(), Qt::Key_S, Qt::ControlModifier);
            QTest::keyClick(window_.get(), Qt::Key_Escape);
        });
    };
    // So many that a run takes longer than the time between two looks.
    Lengthen(30000);
    escape();
    Do("refresh");
    ExpectAsBefore("refresh");

    const auto path = Session().Path();
    const auto other = folder_.File("other.json");
    folder_.Write("other.json",
                  gazetteer::ReplaceAll(folder_.Read("names.json"), R"("HaveSavedListings",true)",
                                        R"("HaveSavedListings",false)"));
    escape();
    Open(other);
    EXPECT_EQ(Session().Path(), path);
    EXPECT_EQ(Status(), "Cancelled");
    Do("refresh");
    EXPECT_EQ(Status().substr(0, 13), "30000 records");
}

TEST_F(Runs, ShowADialogThatEndsThem) {
    Lengthen(200000);
    const std::tuple<const char*, Answer> ways[] = {
        {"Cancel", [](QWidget& dialog) { Press(dialog, "Cancel"); }},
        {"click",
         [](QWidget& dialog) {
             QTest::mouseClick(dialog.findChild<QAbstractButton*>(), Qt::LeftButton);
         }},
        {"Escape", support::Escape},
        {"Escape elsewhere", [this](QWidget&) { support::Escape(*window_); }},
        {"close", [](QWidget& dialog) { dialog.close(); }}};
    for (const auto& [how, act] : ways) {
        WhenRunning([&](QWidget& dialog) {
            EXPECT_EQ(dialog.parentWidget(), window_.get()) << how;
            auto& pages = Find<QTreeView>("pageList");
            const QPoint first = pages.visualRect(pages.model()->index(0, 0)).center();
            QTest::mouseClick(pages.viewport(), Qt::LeftButton, {}, first);
            act(dialog);
        });
        Do("refresh");
        ExpectAsBefore(how);
        WhenRunning([&](QWidget& dialog) {
            EXPECT_EQ(dialog.parentWidget(), QApplication::activeModalWidget()) << how;
            act(dialog);
        });
        InSheet([&](QWidget& sheet) {
            support::Part<QRadioButton>(sheet, "OptSortOrder_1").click();
            Press(sheet, "OK");
            EXPECT_TRUE(sheet.isVisible()) << "with the edits that were not applied: " << how;
        });
        ExpectAsBefore(how);
    }
    EXPECT_EQ(dialogs_, 2 * static_cast<int>(std::size(ways)));
}

// The sheet goes on with the document that was brought back.
TEST_F(Runs, ThatAreCancelledLeaveTheSheetUsable) {
    Lengthen(200000);
    WhenRunning(support::Escape);
    InSheet([&](QWidget& sheet) {
        support::Part<QRadioButton>(sheet, "OptSortOrder_1").click();
        Press(sheet, "Apply");
        EXPECT_EQ(dialogs_, 1);
        Table("names.dbf", 900);
        Press(sheet, "Apply");
        auto& columns = support::Part<QListWidget>(sheet, "lstListingColumns");
        columns.setCurrentRow(1 - columns.currentRow());
        support::Retype(support::Part<QLineEdit>(sheet, "txtColumnWidth"), "0.5");
        EXPECT_EQ(support::Part<QLineEdit>(sheet, "txtColumnWidth").toolTip(), "");
    });
}

TEST_F(Runs, TakeKeysInTheirMessages) {
    Lengthen(9000);
    const auto columns =
        gazetteer::SetUnder(*Session().Document().Properties(), "ColumnsProperties");
    gazetteer::SetUnder(*columns, "Listing")->SetItem("MarginLeft", 100.0);
    support::WhenModal(support::Escape);
    Do("refresh");
    EXPECT_FALSE(Find<QLabel>("noticeText").text().contains("cancelled"));
}

}  // namespace
