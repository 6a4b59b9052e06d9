#include <QComboBox>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QUrl>
#include <filesystem>
#include <fstream>

#include "app_window/WindowStory.h"

namespace {

using window_test::WindowStory;

class Documents : public WindowStory {
public:
    QStringList Recent() const {
        QStringList names;
        for (const QAction* action : Find<QMenu>("recentMenu").actions())
            if (action->text().endsWith(".json")) names << QFileInfo(action->text()).fileName();
        return names;
    }
    bool Exists(const std::string& name) const {
        return std::filesystem::exists(folder_.File(name));
    }
};

TEST_F(Documents, ANewOneIsMadeFromATable) {
    const std::string table = Table("names.dbf", 30);
    support::WhenModal([&](QWidget& dialog) {
        auto& line = support::Part<QLineEdit>(dialog, "tableLine");
        auto& note = support::Part<QLabel>(dialog, "tableNote");
        line.setText(QString::fromStdString(folder_.File("none.dbf")));
        EXPECT_EQ(note.text(), "There is no such file.");
        line.setText(QString::fromStdString(folder_.Write("bad.dbf", "no table")));
        EXPECT_TRUE(note.text().contains("bad.dbf"));
        line.setText(QString::fromStdString(table));
        EXPECT_EQ(note.text(), "Fields: Listing, Page");
        support::Part<QComboBox>(dialog, "pageSize").setCurrentText("A4");
        Press(dialog, "Create");
    });
    Do("newDocument");
    EXPECT_FALSE(Layout().OnDisk());
    EXPECT_TRUE(window_->isWindowModified());
    EXPECT_TRUE(window_->windowTitle().startsWith("names (not saved)"));
    EXPECT_NEAR(Layout().TheDesk().CurrentDocument().pageHeight, 297 / 25.4, 1e-9);
    // Dressed for print: a running head and a number beside the gazetteer.
    EXPECT_EQ(Layout().TheDesk().CurrentDocument().elements.size(), 3U);
    EXPECT_EQ(DrawnListings().size(), 30U);
    EXPECT_TRUE(Status().startsWith("30 records: 30 listings")) << Status().toStdString();
}

TEST_F(Documents, AFailedNewOneLeavesTheDocumentBefore) {
    MakeSaved(Table("names.dbf", 30), "names.json");
    const std::string book = folder_.Write("book.json", "{ broken");
    support::WhenModal([&](QWidget& dialog) {
        support::Part<QLineEdit>(dialog, "bookLine").setText(QString::fromStdString(book));
        ExpectMessage("book.json");
        Press(dialog, "Create");
        Press(dialog, "Cancel");
    });
    window_->Open(QString::fromStdString(Table("other.dbf", 5)));
    EXPECT_EQ(Layout().Path(), folder_.File("names.json"));
    EXPECT_EQ(DrawnListings().size(), 30U);
    EXPECT_FALSE(Layout().Modified());
    Do("refresh");
    EXPECT_EQ(DrawnListings().size(), 30U);
}

TEST_F(Documents, WhatCannotBeReadIsToldAndTheWindowGoesOn) {
    EXPECT_FALSE(Action("save").isEnabled());
    ExpectMessage("damaged");
    window_->Open(QString::fromStdString(folder_.Write("bad.json", "{\"format\": ")));
    EXPECT_FALSE(Layout().HasDocument());
    EXPECT_EQ(Recent(), QStringList());
    MakeSaved(Table("names.dbf", 30), "names.json");
    ExpectMessage("gone.json");
    window_->Open(QString::fromStdString(folder_.File("gone.json")));
    EXPECT_EQ(Layout().Path(), folder_.File("names.json"));
}

TEST_F(Documents, UnsavedChangesAreAskedAbout) {
    const std::string saved = MakeSaved(Table("names.dbf", 30), "names.json");
    EXPECT_FALSE(window_->isWindowModified());
    Do("draft");
    ExpectMessage("Save them?", "Cancel");
    EXPECT_FALSE(window_->close());
    EXPECT_TRUE(window_->isWindowModified());
    ExpectMessage("Save them?", "Save");
    EXPECT_TRUE(window_->close());

    NewWindow();
    window_->Open(QString::fromStdString(saved));
    EXPECT_TRUE(Layout().InDraft());
    Do("draft");
    ExpectMessage("Save them?", "Discard");
    window_->Open(QString::fromStdString(saved));
    EXPECT_TRUE(Layout().InDraft());
    EXPECT_FALSE(window_->isWindowModified());
    EXPECT_TRUE(window_->close());
}

TEST_F(Documents, RecentOnesAreKeptUntilTheyAreGone) {
    const std::string first = MakeSaved(Table("one.dbf", 5), "one.json");
    MakeSaved(Table("two.dbf", 5), "two.json");
    EXPECT_EQ(Recent(), QStringList({"two.json", "one.json"}));
    NewWindow();
    ASSERT_EQ(Recent(), QStringList({"two.json", "one.json"}));
    std::filesystem::remove(first);
    ExpectMessage("no longer there");
    Find<QMenu>("recentMenu").actions()[1]->trigger();
    EXPECT_EQ(Recent(), QStringList("two.json"));
    Find<QMenu>("recentMenu").actions()[0]->trigger();
    EXPECT_EQ(Layout().Path(), folder_.File("two.json"));
}

TEST_F(Documents, AreNotSavedOverWhatAnotherProgramWrote) {
    const std::string path = MakeSaved(Table("names.dbf", 30), "names.json");
    Do("draft");
    Do("save");
    EXPECT_FALSE(window_->isWindowModified());

    desk::Document theirs = desk::ReadDocument(path, Layout().TheDesk().Text());
    theirs.title = "Theirs";
    desk::WriteDocument(theirs, path);
    Do("draft");
    ExpectMessage("another program has changed it");
    Do("save");
    EXPECT_TRUE(window_->isWindowModified());
    EXPECT_EQ(desk::ReadDocument(path, Layout().TheDesk().Text()).title, "Theirs");

    // Who says so may write over it; from then on it is this window's again.
    support::WhenModal([&](QWidget& dialog) {
        support::WhenModal([](QWidget& question) { Press(question, "Yes"); });
        TypeFile(dialog, path);
    });
    Do("saveAs");
    EXPECT_FALSE(window_->isWindowModified());
    EXPECT_NE(desk::ReadDocument(path, Layout().TheDesk().Text()).title, "Theirs");
    Do("draft");
    Do("save");
    EXPECT_FALSE(window_->isWindowModified());
}

TEST_F(Documents, AreNotSavedOverWhatTheyAreMadeFrom) {
    const std::string table = Table("names.dbf", 5);
    Make(table);
    support::WhenModal([&](QWidget& dialog) {
        support::WhenModal([](QWidget& question) {
            ExpectMessage("made from that file");
            Press(question, "Yes");
        });
        TypeFile(dialog, table);
    });
    Do("saveAs");
    EXPECT_TRUE(window_->isWindowModified());
    EXPECT_FALSE(Layout().OnDisk());
}

TEST_F(Documents, AMapBookIsFoundFromAnotherFolderToo) {
    Make(Table("names.dbf", 5));
    folder_.Write("book.json", "{}");
    Layout().TheDesk().CurrentDocument().mapBook = "book.json";
    std::filesystem::create_directory(folder_.File("deep"));
    support::WhenModal([&](QWidget& dialog) { TypeFile(dialog, folder_.File("deep/d.json")); });
    Do("saveAs");
    EXPECT_EQ(Layout().TheDesk().CurrentDocument().mapBook, "../book.json");
    EXPECT_TRUE(Exists("deep/d.json"));
}

TEST_F(Documents, AFileThatIsDroppedIsOpened) {
    const std::string saved = MakeSaved(Table("names.dbf", 5), "names.json");
    NewWindow();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(saved))});
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window_.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window_.get(), &drop);
    QTest::qWait(0);
    EXPECT_EQ(Layout().Path(), saved);
}

}  // namespace
