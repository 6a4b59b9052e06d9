#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>
#include <QSpinBox>
#include <QWheelEvent>
#include <tuple>

#include "app_window/WindowStory.h"
#include "host/Application.h"

namespace {

class Pages : public window_test::WindowStory {
public:
    Pages() { MakeSaved(Table("names.dbf", 900), "names.json"); }

    void Run(const std::string& command) {
        const auto id = Session().Host().NewIdentifier();
        id->SetValue(command);
        const auto document = Session().Host().NewApplication()->Document();
        document->CommandBars()->Find(id, false, false)->Execute();
    }
    void SaveAndOpen() {
        Do("save");
        NewWindow();
        Open(folder_.File("names.json"));
    }
    QAbstractItemModel& List() const { return *Find<QTreeView>("pageList").model(); }
    QString Name(int page) const { return List().index(page - 1, 1).data().toString(); }
};

TEST_F(Pages, TurnByActionsBoxListAndKeys) {
    const int last = Session().Pages();
    ASSERT_GE(last, 3);
    EXPECT_EQ(ListedPages(), last);
    EXPECT_EQ(DrawnListings().front(), "Alpha 0001");
    auto& box = Find<QSpinBox>("pageBox");
    auto& list = Find<QTreeView>("pageList");
    const auto press = [this](Qt::Key key) { QTest::keyClick(&window_->View(), key); };
    const std::tuple<const char*, std::function<void()>, int> turns[] = {
        {"next", [&] { Do("nextPage"); }, 2},
        {"last", [&] { Do("lastPage"); }, last},
        {"previous", [&] { Do("previousPage"); }, last - 1},
        {"first", [&] { Do("firstPage"); }, 1},
        {"box", [&] { box.setValue(3); }, 3},
        {"list", [&] { list.setCurrentIndex(List().index(1, 0)); }, 2},
        {"key", [&] { press(Qt::Key_PageDown); }, 3},
        {"key back", [&] { press(Qt::Key_PageUp); }, 2},
        {"last again", [&] { Do("lastPage"); }, last},
    };
    for (const auto& [what, turn, page] : turns) {
        const auto before = DrawnListings();
        turn();
        EXPECT_EQ(Session().Page(), page) << what;
        EXPECT_EQ(box.value(), page) << what;
        EXPECT_EQ(list.currentIndex().row(), page - 1) << what;
        EXPECT_EQ(Find<QLabel>("statusPage").text(), QString("Page %1 of %2").arg(page).arg(last));
        EXPECT_NE(DrawnListings(), before) << what;
    }
    EXPECT_EQ(DrawnListings().back(), "Alpha 0900");
    EXPECT_FALSE(Action("nextPage").isEnabled());
    EXPECT_FALSE(window_->isWindowModified());
}

TEST_F(Pages, HaveAMenuInTheListAndOnTheSheet) {
    auto& list = Find<QTreeView>("pageList");
    QWidget& rows = *list.viewport();
    const auto choose = [&](int action) {
        const QPoint place = list.visualRect(List().index(1, 0)).center();
        QTest::mousePress(&rows, Qt::RightButton, {}, place);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, rows.mapToGlobal(place));
        QApplication::sendEvent(&rows, &event);
        EXPECT_EQ(Session().Page(), 1) << "the menu alone turns no page";
        const QPointer<QMenu> menu = &Find<QMenu>("pageMenu");
        menu->actions()[action]->trigger();
        delete menu;  // Unless the dialog's events have deleted it.
    };
    support::WhenModal([](QWidget& dialog) {
        EXPECT_TRUE(support::Part<QAbstractButton>(dialog, "exportRange").isChecked());
        EXPECT_EQ(support::Part<QSpinBox>(dialog, "exportFirst").value(), 2);
        EXPECT_EQ(support::Part<QSpinBox>(dialog, "exportLast").value(), 2);
        Press(dialog, "Cancel");
    });
    choose(1);
    choose(0);
    EXPECT_EQ(Session().Page(), 2);

    auto& view = window_->View();
    QTest::mousePress(view.viewport(), Qt::RightButton, {}, view.ToView({4, 5}).toPoint());
    EXPECT_TRUE(Action("deselect").isEnabled()) << "the menu is for what is under the pointer";
    EXPECT_TRUE(view.actions().contains(&Action("properties")));
}

TEST_F(Pages, AreFoundByListing) {
    auto& filter = Find<QLineEdit>("pageFilter");
    Do("lastPage");
    const auto wanted = QString::fromStdString(DrawnListings()[3]);
    const int page = Session().Page();
    Do("firstPage");

    QTest::keyClicks(&filter, wanted.toUpper());
    ASSERT_TRUE(QTest::qWaitFor([this] { return ListedPages() == 1; }));
    EXPECT_TRUE(Name(1).startsWith(wanted));
    EXPECT_EQ(Session().Page(), 1);
    QTest::keyClick(&filter, Qt::Key_Return);
    EXPECT_EQ(Session().Page(), page);

    // Each hit has a row of its own.
    filter.setText("alpha 000");
    EXPECT_EQ(ListedPages(), 9);
    auto& list = Find<QTreeView>("pageList");
    list.setCurrentIndex(List().index(4, 0));
    EXPECT_EQ(list.currentIndex().row(), 4);
    EXPECT_EQ(Session().Page(), 1);
    Do("lastPage");
    list.setCurrentIndex(List().index(5, 0));
    EXPECT_EQ(Session().Page(), 1);
    EXPECT_EQ(list.currentIndex().row(), 5) << "not the first one on the page";
    Find<QSpinBox>("pageBox").setValue(page);
    filter.setText("no such place");
    EXPECT_EQ(ListedPages(), 0);
    QTest::keyClick(&filter, Qt::Key_Escape);
    EXPECT_EQ(ListedPages(), Session().Pages());
    EXPECT_EQ(Find<QTreeView>("pageList").currentIndex().row(), page - 1);
}

TEST_F(Pages, HitsAreMarkedOnThePage) {
    const auto marks = [this] { return window_->View().Marks(); };
    auto& filter = Find<QLineEdit>("pageFilter");
    EXPECT_TRUE(marks().empty());
    filter.setText("alpha 000");
    ASSERT_TRUE(QTest::qWaitFor([&] { return marks().size() == 9; }));
    const double height = Session().Document().TheDesk().CurrentDocument().pageHeight;
    for (const int row : {0, 5}) {
        Find<QTreeView>("pageList").setCurrentIndex(List().index(row, 0));
        const auto current = marks().back();
        EXPECT_TRUE(current.current);
        // Marked are the cells of this listing and no others.
        const auto line = host::As<host::IHostGroupElement>(support::TestDesk::Members(
            *Session().Document().Gazetteer(), "ROWGROUP")[static_cast<std::size_t>(row)]);
        const auto bounds = Session().Host().NewEnvelope();
        line->MeasureBounds(Session().Host().NewApplication()->Document()->ActiveView()->Display(),
                            bounds);
        EXPECT_NEAR(current.box.top(), height - bounds->YMax(), 0.01);
        EXPECT_NEAR(current.box.left(), bounds->XMin(), 0.01);
        EXPECT_NEAR(current.box.width(), bounds->Width(), 0.01);
    }
    Do("zoomFull");
    for (int i = 0; i < 4; ++i) Do("zoomIn");
    filter.setText("0800");
    Do("findNext");
    const auto found = marks();
    ASSERT_EQ(found.size(), 1U);
    auto& view = window_->View();
    EXPECT_TRUE(view.viewport()->rect().contains(view.ToView(found[0].box.center()).toPoint()))
        << "scrolled to";
    Do("draft");
    EXPECT_TRUE(marks().empty());
}

// Each key is pressed in the field for searching.
TEST_F(Pages, TheSearchFieldLeavesTheWindowItsShortcuts) {
    Activate();
    auto& filter = Find<QLineEdit>("pageFilter");
    Do("findPage");
    ASSERT_TRUE(filter.hasFocus());
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
        QTest::keyClick(&filter, key, with);
    };
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(Session().Page(), 2);
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_TRUE(Session().InDraft());
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(Session().InDraft()) << "the field has nothing to take back";
    QTest::keyClicks(&filter, "alpha 000");
    ASSERT_TRUE(QTest::qWaitFor([this] { return ListedPages() == 9; }));
    press(Qt::Key_F3);
    EXPECT_EQ(Session().Page(), 1);
    press(Qt::Key_F3);
    EXPECT_EQ(Find<QTreeView>("pageList").currentIndex().row(), 1);
    press(Qt::Key_F3, Qt::ShiftModifier);
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Find<QTreeView>("pageList").currentIndex().row(), 8) << "after the first the last";
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(filter.text(), "");
    bool opened = false;
    support::WhenModal([&](QWidget& dialog) {
        opened = true;
        support::Escape(dialog);
    });
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(opened);
}

TEST_F(Pages, DraftTakesThePageOnShowAwayAndBringsItBack) {
    Do("nextPage");
    const auto drawn = DrawnListings();
    Do("draft");
    EXPECT_TRUE(Session().InDraft());
    EXPECT_TRUE(window_->isWindowModified());
    Run("CVNLayoutsCmds.RefreshLayout");
    EXPECT_TRUE(DrawnListings().empty()) << "a refresh draws nothing";
    EXPECT_EQ(ListedPages(), Session().Pages());
    Do("draft");
    EXPECT_FALSE(Session().InDraft());
    EXPECT_EQ(DrawnListings(), drawn);
    for (const bool draft : {true, false}) {
        Do("undo");
        EXPECT_EQ(Session().InDraft(), draft);
        EXPECT_EQ(Action("draft").isChecked(), draft);
        EXPECT_EQ(DrawnListings(), draft ? std::vector<std::string>() : drawn);
        EXPECT_EQ(window_->isWindowModified(), draft) << "clean once all is undone";
    }

    Session().Document().Properties()->SetItem("DefaultPage", 3);
    SaveAndOpen();
    EXPECT_EQ(Session().Page(), 3);
}

TEST_F(Pages, TheRefreshCommandKeepsThePageTakesTheLastOneOrSaysWhyThereIsNone) {
    Do("lastPage");
    const int last = Session().Page();
    Run("CVNLayoutsCmds.RefreshLayout");
    EXPECT_EQ(Session().Page(), last);

    // Fewer listings, and stored results that are no longer valid.
    Table("names.dbf", 12);
    Session().Document().Properties()->SetItem("HaveSavedListings", false);
    Run("CVNLayoutsCmds.RefreshLayout");
    Run("CVNLayoutsCmds.RefreshTOC");
    EXPECT_EQ(ListedPages(), 1);
    EXPECT_EQ(DrawnListings().size(), 12U);
    EXPECT_EQ(Status().substr(0, 23), "12 records: 12 listings");

    Session().Document().Properties()->SetItem("IndexDatabaseFile", folder_.File("gone.dbf"));
    Run("CVNLayoutsCmds.RefreshLayout");
    const QString told = Find<QLabel>("noticeText").text();
    EXPECT_TRUE(told.startsWith("The gazetteer cannot be drawn.")) << told.toStdString();
    EXPECT_TRUE(told.contains("gone.dbf")) << told.toStdString();
    EXPECT_EQ(Session().Pages(), 0);
    EXPECT_FALSE(Action("exportPages").isEnabled());
    EXPECT_TRUE(Action("properties").isEnabled());
}

TEST_F(Pages, OfADamagedDocumentAreShownAsFarAsTheyGo) {
    const auto& working = Session().Document().Manager().Working();
    working.firstListings->RemoveItem("2");
    working.firstListings->SetItem("20", std::string("astray"));
    working.pageGroups->RemoveItem("3");
    working.pageGroups->SetItem("30", host::Empty{});
    // A dialog would fail the test: nobody answers it.
    SaveAndOpen();
    EXPECT_EQ(Name(2), "");
    EXPECT_TRUE(Name(1).startsWith("Alpha 0001"));
    Find<QLineEdit>("pageFilter").setText("alpha 0900");
    EXPECT_TRUE(QTest::qWaitFor([this] { return ListedPages() == 1; }));
}

TEST_F(Pages, TheGazetteerIsSelectedByAClickAndLetGoByEscape) {
    auto& view = window_->View();
    QWidget& paper = *view.viewport();
    const QPoint middle = view.ToView({4, 5}).toPoint();
    QTest::mouseClick(&paper, Qt::LeftButton, {}, middle);
    EXPECT_TRUE(Action("deselect").isEnabled());
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_FALSE(Action("deselect").isEnabled());
    // A double click opens the sheet.
    support::WhenModal([](QWidget& sheet) { Press(sheet, "Cancel"); });
    QTest::mouseDClick(&paper, Qt::LeftButton, {}, middle);
    EXPECT_TRUE(Action("deselect").isEnabled());
    // Beside the sheet nothing is selected.
    QTest::mouseClick(&paper, Qt::LeftButton, {}, QPoint(3, 3));
    EXPECT_FALSE(Action("deselect").isEnabled());
}

TEST_F(Pages, TheZoomHoldsThePlaceUnderThePointer) {
    auto& view = window_->View();
    QScrollBar& down = *view.verticalScrollBar();
    Do("zoomFull");
    EXPECT_DOUBLE_EQ(view.Zoom(), 1);
    down.setValue(100);
    const QPointF place = view.ToView({4, 4});
    QWheelEvent wheel(place, view.viewport()->mapToGlobal(place), {}, {0, 240}, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &wheel);
    EXPECT_GT(view.Zoom(), 1.2);
    EXPECT_LE((view.ToView({4, 4}) - place).manhattanLength(), 2);

    const int before = down.value();
    QTest::mousePress(view.viewport(), Qt::MiddleButton, {}, QPoint(200, 200));
    QTest::mouseMove(view.viewport(), QPoint(200, 150));
    QTest::mouseRelease(view.viewport(), Qt::MiddleButton, {}, QPoint(200, 150));
    EXPECT_EQ(down.value(), before + 50);

    for (const char* const fit : {"fitWidth", "fitPage"}) {
        Do(fit);
        EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0) << fit;
        EXPECT_EQ(down.maximum() == 0, QString(fit) == "fitPage") << fit;
        EXPECT_TRUE(Action(fit).isChecked()) << fit;
    }
}

}  // namespace
