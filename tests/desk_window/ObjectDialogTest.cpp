#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>
#include <filesystem>

#include "desk/window/FolderPlaces.h"
#include "desk/window/ObjectDialog.h"
#include "support/DbfBuilder.h"
#include "support/Modal.h"
#include "support/TemporaryFolder.h"

namespace {

using support::Part;
using support::WhenModal;

/// What came out of a dialog: "category|path|name", or "cancelled".
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

    std::string Pick(const std::function<void(QWidget&)>& act) {
        desk::ObjectDialog dialog([] { return nullptr; }, folder_.Path());
        dialog.SetTitle("Output Table");
        host::Ref<host::IHostObjectSelection> selection;
        bool accepted = true;
        WhenModal([&](QWidget& shown) {
            EXPECT_EQ(shown.windowTitle(), "Output Table");
            act(shown);
        });
        dialog.DoModal(0, selection, accepted);
        if (!accepted) return selection ? "a selection" : "cancelled";
        selection->Reset();
        const auto object = selection->Next();
        EXPECT_FALSE(selection->Next());
        return object->Category() + "|" + object->FullName() + "|" + dialog.Name();
    }
    static QTreeWidget& List(QWidget& shown) { return Part<QTreeWidget>(shown, "list"); }
    static void Type(QWidget& shown, const char* field, const QString& text) {
        auto& edit = Part<QLineEdit>(shown, field);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, text);
        QTest::keyClick(&edit, Qt::Key_Return);
    }
    static QStringList Names(QWidget& shown) {
        QStringList names;
        for (int row = 0; row < List(shown).topLevelItemCount(); ++row)
            names << List(shown).topLevelItem(row)->text(0);
        return names;
    }
    static void DoubleClick(QTreeWidget& list, int row) {
        const QPoint at = list.visualItemRect(list.topLevelItem(row)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
    }

    support::TemporaryFolder folder_;
};

TEST_F(ObjectDialogTest, PicksATableByKeysAlone) {
    EXPECT_EQ(Pick([&](QWidget& shown) {
                  EXPECT_EQ(Names(shown), (QStringList{"maps", "broken.dbf", "Places.DBF"}));
                  QTest::keyClick(&List(shown), Qt::Key_Down);
                  QTest::keyClick(&List(shown), Qt::Key_Down);
                  QTest::keyClick(&List(shown), Qt::Key_Return);
              }),
              "dBASE Table|" + folder_.File("Places.DBF") + "|Places.DBF");
}

TEST_F(ObjectDialogTest, TakesANameInTheFolderOnShow) {
    const std::string here = folder_.Path();
    const std::vector<std::pair<QString, std::string>> cases = {
        {"new", "Folder|" + here + "|new"},
        {"new.dbf", "Folder|" + here + "|new.dbf"},
        {"Places", "dBASE Table|" + here + "/Places.DBF|Places.DBF"},
        {"Places.DBF", "dBASE Table|" + here + "/Places.DBF|Places.DBF"}};
    for (const auto& [typed, result] : cases)
        EXPECT_EQ(Pick([&, name = typed](QWidget& shown) { Type(shown, "name", name); }), result);
}

TEST_F(ObjectDialogTest, WalksThroughFolders) {
    EXPECT_EQ(Pick([&](QWidget& shown) {
                  DoubleClick(List(shown), 0);
                  EXPECT_EQ(Names(shown), QStringList{"inner.dbf"});
                  QTest::keyClick(&shown, Qt::Key_Up, Qt::AltModifier);
                  EXPECT_TRUE(QTest::qWaitFor([&] { return Names(shown).size() == 3; }));
                  EXPECT_EQ(List(shown).currentItem()->text(0), "maps");
                  Type(shown, "address", "/no/such/folder");
                  EXPECT_EQ(Part<QLabel>(shown, "note").text(),
                            "There is no folder /no/such/folder.");
                  Type(shown, "name", "maps/inner.dbf");
                  EXPECT_TRUE(shown.isVisible());
                  QTest::keyClick(&Part<QLineEdit>(shown, "name"), Qt::Key_Return);
              }),
              "dBASE Table|" + folder_.File("maps/inner.dbf") + "|inner.dbf");
}

TEST_F(ObjectDialogTest, TakesANameInAFolderConnection) {
    EXPECT_EQ(Pick([&](QWidget& shown) {
                  Type(shown, "address", " ");
                  Type(shown, "name", "new");
                  EXPECT_EQ(Part<QLabel>(shown, "note").text(),
                            "Select the folder connection in which new is to be.");
                  List(shown).setCurrentItem(List(shown).topLevelItem(0));
                  Type(shown, "name", "new");
              }),
              "Folder Connection|" + folder_.Path() + "|new");
}

TEST_F(ObjectDialogTest, ShowsWhatATableHolds) {
    EXPECT_EQ(
        Pick([&](QWidget& shown) {
            auto& summary = Part<QLabel>(shown, "previewSummary");
            List(shown).setCurrentItem(List(shown).topLevelItem(2));
            EXPECT_TRUE(QTest::qWaitFor([&] { return summary.text().contains("2 records"); }));
            auto& fields = Part<QTreeWidget>(shown, "previewFields");
            ASSERT_EQ(fields.topLevelItemCount(), 2);
            EXPECT_EQ(fields.topLevelItem(1)->text(0), "PAGE");
            EXPECT_EQ(fields.topLevelItem(1)->text(1), "Number (6)");
            List(shown).setCurrentItem(List(shown).topLevelItem(1));
            EXPECT_TRUE(QTest::qWaitFor([&] { return summary.text().contains("broken.dbf"); }));
            EXPECT_TRUE(fields.isHidden());
            QTest::keyClick(&List(shown), Qt::Key_Escape);
        }),
        "cancelled");
}

TEST_F(ObjectDialogTest, PicksSeveralWhereThatIsAllowed) {
    desk::ObjectDialog dialog([] { return nullptr; }, folder_.Path());
    dialog.SetAllowMultiSelect(true);
    host::Ref<host::IHostObjectSelection> selection;
    bool accepted = false;
    WhenModal([&](QWidget& shown) {
        List(shown).selectAll();
        Part<QLineEdit>(shown, "name").setFocus();
        QTest::keyClick(&Part<QLineEdit>(shown, "name"), Qt::Key_Return);
    });
    dialog.DoModal(0, selection, accepted);
    ASSERT_TRUE(accepted);
    EXPECT_EQ(selection->Next()->FullName(), folder_.File("broken.dbf"));
    EXPECT_EQ(selection->Next()->FullName(), folder_.File("Places.DBF"));
    EXPECT_FALSE(selection->Next());
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
    EXPECT_EQ(Pick([&](QWidget& shown) {
                  auto& places = Part<QListWidget>(shown, "places");
                  auto& remove = Part<QPushButton>(shown, "removePlace");
                  EXPECT_FALSE(remove.isEnabled());
                  places.setCurrentRow(places.count() - 1);
                  QTest::keyClick(&places, Qt::Key_Return);
                  EXPECT_EQ(Names(shown), QStringList{"inner.dbf"});
                  remove.click();
                  QTest::keyClick(&shown, Qt::Key_Escape);
              }),
              "cancelled");
    EXPECT_FALSE(has());
}

}  // namespace
