#include <QComboBox>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QUrl>
#include <filesystem>

#include "app_window/WindowStory.h"

namespace {

class Documents : public window_test::WindowStory {
public:
    QStringList Recent() const {
        QStringList names;
        for (const QAction* action : Find<QMenu>("recentMenu").actions())
            if (action->text().endsWith(".json")) names << QFileInfo(action->text()).fileName();
        return names;
    }
    void SaveAs(const std::string& path, const window_test::Answer& before = {}) const {
        DoWith("saveAs", [&](QWidget& dialog) {
            if (before) before(dialog);
            TypeFile(dialog, path);
        });
    }
    desk::Document& Document() const { return Session().Document().TheDesk().CurrentDocument(); }
};

TEST_F(Documents, ANewOneIsMadeFromATable) {
    const std::string table = Table("names.dbf", 30);
    const std::string bad = folder_.Write("bad.dbf", "no table");
    DoWith("newDocument", [&](QWidget& dialog) {
        const auto& note = support::Part<QLabel>(dialog, "tableNote");
        Type(dialog, "tableLine", folder_.File("none.dbf"));
        EXPECT_EQ(note.text(), "There is no such file.");
        Type(dialog, "tableLine", bad);
        EXPECT_TRUE(note.text().contains("bad.dbf"));
        Type(dialog, "tableLine", table);
        EXPECT_EQ(note.text(), "Fields: Listing, Page");
        auto& size = support::Part<QComboBox>(dialog, "pageSize");
        size.setCurrentText("A4");
        Q_EMIT size.activated(size.currentIndex());
        Press(dialog, "Create");
    });
    EXPECT_TRUE(window_->isWindowModified());
    EXPECT_TRUE(window_->windowTitle().startsWith("names (not saved)"));
    EXPECT_NEAR(Document().pageHeight, 297 / 25.4, 1e-9);
    // Dressed for print: a running head and a number beside the gazetteer.
    EXPECT_EQ(Document().elements.size(), 3U);
    EXPECT_EQ(DrawnListings().size(), 30U);
    EXPECT_EQ(Status().substr(0, 23), "30 records: 30 listings");
}

TEST_F(Documents, WhatCannotBeReadIsToldAndLeavesTheOneBefore) {
    EXPECT_FALSE(Action("save").isEnabled());
    ExpectMessage("damaged");
    Open(folder_.Write("bad.json", "{\"format\": "));
    EXPECT_FALSE(Session().HasDocument());
    EXPECT_EQ(Recent(), QStringList());

    const auto path = MakeSaved(Table("names.dbf", 30), "names.json");
    ExpectMessage("gone.json");
    Open(folder_.File("gone.json"));
    const std::string book = folder_.Write("book.json", "{ broken");
    support::WhenModal([&](QWidget& dialog) {
        Type(dialog, "bookLine", book);
        ExpectMessage("book.json");
        Press(dialog, "Create");
        Press(dialog, "Cancel");
    });
    Open(Table("other.dbf", 5));
    EXPECT_EQ(Session().Path(), path);
    EXPECT_FALSE(Session().Modified());
    Do("refresh");
    EXPECT_EQ(DrawnListings().size(), 30U);
}

TEST_F(Documents, UnsavedChangesAreAskedAbout) {
    const std::string saved = MakeSaved(Table("names.dbf", 30), "names.json");
    Do("draft");
    ExpectMessage("Save them?", "Cancel");
    EXPECT_FALSE(window_->close());
    EXPECT_TRUE(window_->isWindowModified());
    ExpectMessage("Save them?", "Save");
    EXPECT_TRUE(window_->close());

    NewWindow();
    Open(saved);
    EXPECT_TRUE(Session().InDraft());
    Do("draft");
    ExpectMessage("Save them?", "Discard");
    Open(saved);
    EXPECT_TRUE(Session().InDraft());
    EXPECT_FALSE(window_->isWindowModified());
    EXPECT_TRUE(window_->close());
}

TEST_F(Documents, RecentAndDroppedOnesAreOpened) {
    const std::string first = MakeSaved(Table("one.dbf", 5), "one.json");
    const std::string second = MakeSaved(Table("two.dbf", 5), "two.json");
    NewWindow();
    ASSERT_EQ(Recent(), QStringList({"two.json", "one.json"}));
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(first))});
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window_.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window_.get(), &drop);
    QTest::qWait(0);
    EXPECT_EQ(Session().Path(), first);

    std::filesystem::remove(second);
    ExpectMessage("no longer there");
    Find<QMenu>("recentMenu").actions()[1]->trigger();
    EXPECT_EQ(Recent(), QStringList("one.json"));
    NewWindow();
    Find<QMenu>("recentMenu").actions()[0]->trigger();
    EXPECT_EQ(Session().Path(), first);
}

TEST_F(Documents, AreNotSavedOverWhatAnotherProgramWrote) {
    const std::string path = MakeSaved(Table("names.dbf", 30), "names.json");
    const auto saved = [&] {
        return desk::ReadDocument(path, Session().Document().TheDesk().Text());
    };
    const auto changeAndSave = [&] {
        Do("draft");
        Do("save");
        return !window_->isWindowModified();
    };
    EXPECT_TRUE(changeAndSave());

    desk::Document theirs = saved();
    theirs.title = "Theirs";
    desk::WriteDocument(theirs, path);
    ExpectMessage("another program has changed it");
    EXPECT_FALSE(changeAndSave());
    EXPECT_EQ(saved().title, "Theirs");

    // Who says so may write over it; from then on it is this window's again.
    SaveAs(path, [](QWidget&) { ExpectMessage("already exists", "Yes"); });
    EXPECT_FALSE(window_->isWindowModified());
    EXPECT_NE(saved().title, "Theirs");
    EXPECT_TRUE(changeAndSave());
}

TEST_F(Documents, AreSavedElsewhereButNotOverWhatTheyAreMadeFrom) {
    const std::string table = Table("names.dbf", 5);
    Make(table);
    folder_.Write("book.json", "{}");
    Document().mapBook = "book.json";
    SaveAs(table, [](QWidget&) {
        ExpectMessage("already exists", "Yes", [](QWidget& told) {
            EXPECT_TRUE(dynamic_cast<QMessageBox&>(told).text().contains("made from that file"));
            Press(told, "OK");
        });
    });
    EXPECT_FALSE(Session().OnDisk());
    std::filesystem::create_directory(folder_.File("deep"));
    SaveAs(folder_.File("deep/d.json"));
    EXPECT_EQ(Document().mapBook, "../book.json");
    EXPECT_TRUE(std::filesystem::exists(folder_.File("deep/d.json")));
}

}  // namespace
