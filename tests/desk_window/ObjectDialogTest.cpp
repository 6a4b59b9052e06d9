#include <QLabel>
#include <QListWidget>
#include <QTreeWidget>
#include <filesystem>

#include "desk/window/ObjectDialog.h"
#include "desk/window/PlacesPanel.h"
#include "support/DbfBuilder.h"
#include "support/TemporaryFolder.h"
#include "support/Widgets.h"

namespace {

using support::Part;

class ObjectDialogTest : public testing::Test {
protected:
    ObjectDialogTest() {
        std::filesystem::create_directory(folder_.File("maps"));
        support::DbfBuilder({{"NAME", 'C', 20}, {"PAGE", 'N', 6}})
            .Row({"Oak", "1"})
            .Row({"Gone", "2"}, true)
            .Row({"Elm", "3"})
            .Write(folder_.File("Places.DBF"));
        std::filesystem::copy(folder_.File("Places.DBF"), folder_.File("maps/inner.dbf"));
        folder_.Write("broken.dbf", "no table at all");
        folder_.Write("notes.txt", "");
    }

    /// What came out of a dialog: "category|path|" for each object and the name, or "cancelled".
    std::string Pick(const std::function<void(QWidget&)>& act, bool several = false) {
        desk::ObjectDialog dialog([] { return nullptr; }, folder_.Path());
        dialog.SetAllowMultiSelect(several);
        host::Ref<host::IHostObjectSelection> selection;
        bool accepted = true;
        support::WhenModal(act);
        dialog.DoModal(0, selection, accepted);
        if (!accepted) return selection ? "a selection" : "cancelled";
        std::string picked;
        for (auto object = selection->Next(); object; object = selection->Next())
            picked += object->Category() + "|" + object->FullName() + "|";
        return picked + dialog.Name();
    }
    static QTreeWidget& List(QWidget& shown) { return Part<QTreeWidget>(shown, "list"); }
    static void Type(QWidget& shown, const char* field, const QString& text) {
        auto& edit = Part<QLineEdit>(shown, field);
        support::Retype(edit, text);
        QTest::keyClick(&edit, Qt::Key_Return);
    }
    static QStringList Names(QWidget& shown) { return support::RowTexts(List(shown)); }

    support::TemporaryFolder folder_;
    const std::string table_ = "dBASE Table|" + folder_.File("Places.DBF") + "|";
};

TEST_F(ObjectDialogTest, PicksATableByKeysAloneAndShowsWhatItHolds) {
    const auto picked = Pick([](QWidget& shown) {
        auto& summary = Part<QLabel>(shown, "previewSummary");
        auto& fields = Part<QTreeWidget>(shown, "previewFields");
        EXPECT_EQ(Names(shown), (QStringList{"maps", "broken.dbf", "Places.DBF"}));
        QTest::keyClick(&List(shown), Qt::Key_Down);
        EXPECT_TRUE(QTest::qWaitFor([&] { return summary.text().contains("broken.dbf"); }));
        EXPECT_TRUE(fields.isHidden());
        QTest::keyClick(&List(shown), Qt::Key_Down);
        EXPECT_TRUE(QTest::qWaitFor([&] { return summary.text().contains("2 records"); }));
        EXPECT_EQ(support::RowTexts(fields), (QStringList{"NAME", "PAGE"}));
        EXPECT_EQ(fields.topLevelItem(1)->text(1), "Number (6)");
        QTest::keyClick(&List(shown), Qt::Key_Return);
    });
    EXPECT_EQ(picked, table_ + "Places.DBF");
    EXPECT_EQ(Pick(support::Escape), "cancelled");
}

TEST_F(ObjectDialogTest, TakesANameInTheFolderOnShow) {
    const std::string folder = "Folder|" + folder_.Path() + "|";
    for (const auto& [typed, result] : {std::pair{"new", folder + "new"},
                                        {"new.dbf", folder + "new.dbf"},
                                        {"Places", table_ + "Places.DBF"},
                                        {"Places.DBF", table_ + "Places.DBF"}})
        EXPECT_EQ(Pick([&, name = typed](QWidget& shown) { Type(shown, "name", name); }), result);
    const auto connection = Pick([](QWidget& shown) {
        Type(shown, "address", " ");
        Type(shown, "name", "new");
        EXPECT_EQ(Part<QLabel>(shown, "note").text(),
                  "Select the folder connection in which new is to be.");
        List(shown).setCurrentItem(List(shown).topLevelItem(0));
        Type(shown, "name", "new");
    });
    EXPECT_EQ(connection, "Folder Connection|" + folder_.Path() + "|new");
}

TEST_F(ObjectDialogTest, WalksThroughFolders) {
    const auto picked = Pick([](QWidget& shown) {
        QTest::keyClick(&List(shown), Qt::Key_Return);
        EXPECT_EQ(Names(shown), QStringList{"inner.dbf"});
        QTest::keyClick(&shown, Qt::Key_Up, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Names(shown).size() == 3; }));
        EXPECT_EQ(List(shown).currentItem()->text(0), "maps");
        Type(shown, "address", "/no/such/folder");
        EXPECT_EQ(Part<QLabel>(shown, "note").text(), "There is no folder /no/such/folder.");
        Type(shown, "name", "maps/inner.dbf");
        EXPECT_TRUE(shown.isVisible());
        QTest::keyClick(&Part<QLineEdit>(shown, "name"), Qt::Key_Return);
    });
    EXPECT_EQ(picked, "dBASE Table|" + folder_.File("maps/inner.dbf") + "|inner.dbf");
}

TEST_F(ObjectDialogTest, PicksSeveralWhereThatIsAllowed) {
    const auto selectAll = [](QWidget& shown) {
        List(shown).selectAll();
        Part<QLineEdit>(shown, "name").setFocus();
        QTest::keyClick(&Part<QLineEdit>(shown, "name"), Qt::Key_Return);
    };
    EXPECT_EQ(Pick(selectAll, true),
              "dBASE Table|" + folder_.File("broken.dbf") + "|" + table_ + "broken.dbf");
}

TEST_F(ObjectDialogTest, RemembersFoldersThatTheUserAdded) {
    const QString added = QString::fromStdString(folder_.File("maps"));
    const auto has = [&] {
        for (const auto& place : desk::FolderPlaces({}).List())
            if (place.path == added && place.own) return true;
        return false;
    };
    desk::FolderPlaces({}).Add(added + "/");
    EXPECT_TRUE(has());
    Pick([](QWidget& shown) {
        auto& places = Part<QListWidget>(shown, "places");
        auto& remove = Part<QPushButton>(shown, "removePlace");
        EXPECT_FALSE(remove.isEnabled());
        places.setCurrentRow(places.count() - 1);
        QTest::keyClick(&places, Qt::Key_Return);
        EXPECT_EQ(Names(shown), QStringList{"inner.dbf"});
        remove.click();
        support::Escape(shown);
    });
    EXPECT_FALSE(has());
}

}  // namespace
