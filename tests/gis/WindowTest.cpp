#include <QLabel>
#include <QTreeWidget>
#include <filesystem>
#include <gtest/gtest.h>

#include "app_window/WindowStory.h"
#include "desk/window/ObjectDialog.h"
#include "gis/Sources.h"

namespace {

using support::Part;

class GisWindow : public window_test::WindowStory {
protected:
    GisWindow() {
        tests::CopyTable(Table("short.dbf", 3), "GPKG", folder_.File("maps.gpkg"));
        tests::CopyTable(Table("streets.dbf", 40), "GPKG", folder_.File("maps.gpkg"), {"-update"});
        folder_.Write("notes.txt", "");
        folder_.Write("noise.gpkg", "noise");
        tests::CopyTable(folder_.File("short.dbf"), "CSV", folder_.File("short.csv"));
    }
    /// Chooses a table from the window's folder: its category and path, or "cancelled".
    std::string Pick(const std::function<void(QWidget&)>& act) const {
        desk::ObjectDialog dialog([] { return nullptr; }, folder_.Path());
        host::Ref<host::IHostObjectSelection> selection;
        bool accepted = true;
        support::WhenModal(act);
        dialog.DoModal(0, selection, accepted);
        const auto object = selection ? selection->Next() : nullptr;
        return object ? object->Category() + '|' + object->FullName() : "cancelled";
    }
    static QTreeWidget& List(QWidget& shown) { return Part<QTreeWidget>(shown, "list"); }
    static void Select(QWidget& shown, const QString& name) {
        const auto found = List(shown).findItems(name, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << name.toStdString();
        List(shown).setCurrentItem(found.front());
    }
};

TEST_F(GisWindow, AFileWithLayersOpensLikeAFolder) {
    const auto picked = Pick([](QWidget& shown) {
        EXPECT_EQ(
            support::RowTexts(List(shown)),
            (QStringList{"maps.gpkg", "noise.gpkg", "short.csv", "short.dbf", "streets.dbf"}));
        auto& summary = Part<QLabel>(shown, "previewSummary");
        Select(shown, "short.csv");
        EXPECT_TRUE(QTest::qWaitFor([&] { return summary.text().contains("3 records"); }));
        Select(shown, "noise.gpkg");
        QTest::keyClick(&List(shown), Qt::Key_Return);
        EXPECT_TRUE(Part<QLabel>(shown, "note")
                        .text()
                        .endsWith("noise.gpkg is no table in a format that is known."));
        Select(shown, "maps.gpkg");
        QTest::keyClick(&List(shown), Qt::Key_Return);
        EXPECT_EQ(support::RowTexts(List(shown)), (QStringList{"short", "streets"}));
        Select(shown, "streets");
        EXPECT_TRUE(QTest::qWaitFor([&] { return summary.text().contains("40 records"); }));
        QTest::keyClick(&shown, Qt::Key_Up, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return List(shown).topLevelItemCount() == 5; }));
        EXPECT_EQ(List(shown).currentItem()->text(0), "maps.gpkg");
        auto& name = Part<QLineEdit>(shown, "name");
        support::Retype(name, "maps.gpkg/none");
        QTest::keyClick(&name, Qt::Key_Return);
        QTest::keyClick(&name, Qt::Key_Return);
        EXPECT_TRUE(Part<QLabel>(shown, "note").text().endsWith("maps.gpkg has no layer none."));
        support::Retype(name, "streets");
        QTest::keyClick(&name, Qt::Key_Return);
    });
    EXPECT_EQ(picked, "Table|" + folder_.File("maps.gpkg/streets"));
}

TEST_F(GisWindow, ADocumentIsMadeFromALayer) {
    DoWith("newDocument", [&](QWidget& dialog) {
        const auto& note = Part<QLabel>(dialog, "tableNote");
        const std::pair<const char*, const char*> cases[] = {
            {"maps.gpkg", "maps.gpkg has 2 layers (\"short\", \"streets\"); name one of them"},
            {"maps.gpkg/none", "maps.gpkg has no layer \"none\""},
            {"noise.gpkg", "noise.gpkg is no table in a format that is known."},
            {"gone.gpkg", "There is no such file."},
            {"short.csv", "Fields: Listing, Page"},
        };
        for (const auto& [name, sentence] : cases) {
            Type(dialog, "tableLine", folder_.File(name));
            EXPECT_TRUE(note.text().contains(sentence)) << note.text().toStdString();
        }
        // A server is asked when typing has ended.
        Type(dialog, "tableLine", "PG:host=/nowhere dbname=atlas");
        EXPECT_EQ(note.text(), "A table of a server.");
        EXPECT_TRUE(QTest::qWaitFor([&] { return note.text().contains("cannot be read"); }));
        Type(dialog, "tableLine", folder_.File("maps.gpkg/streets"));
        Press(dialog, "Create");
    });
    EXPECT_TRUE(window_->windowTitle().startsWith("streets (not saved)"));
    EXPECT_EQ(Status().substr(0, 23), "40 records: 40 listings");

    // A file that is dropped or given is asked for in the same dialog.
    NewWindow();
    Make(folder_.File("short.csv"));
    EXPECT_EQ(DrawnListings(),
              (std::vector<std::string>{"Alpha 0001", "Alpha 0002", "Alpha 0003"}));
}

}  // namespace
