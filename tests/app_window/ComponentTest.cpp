#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>

#include "app_window/WindowStory.h"
#include "desk/components/ComponentLibrary.h"
#include "desk/components/Registrar.h"
#include "desk/components/SharedLibrary.h"
#include "model/Typesetting.h"
#include "support/Text.h"

namespace {

using window_test::Answer;

class Component : public window_test::WindowStory {
public:
    Component() { MakeSaved(Table("names.dbf", 900), "names.json"); }

    void Register(bool install) const {
        desk::ComponentLibrary(desk::LibraryOfProgram("gazetteer/libCVNGazetteer.so"))
            .Register(Session().Document().DeskRef(), install);
    }
};

TEST_F(Component, IsFoundOnlyWhileItIsRegistered) {
    const QStringList pages{"Gazetteer", "Typesetting"};
    QStringList tabs;
    const Answer look = [&](QWidget& sheet) {
        tabs.clear();
        const auto* const row = sheet.findChild<QTabWidget*>();
        for (int i = 0; row != nullptr && i < row->count(); ++i) tabs << row->tabText(i);
    };
    InSheet(look);
    EXPECT_EQ(tabs, pages) << "at the first start";
    for (const bool installed : {false, true, false, true}) {
        Register(installed);
        InSheet(look);
        EXPECT_EQ(tabs, installed ? pages : QStringList());
    }
    // That of another version, which is gone, makes way.
    const char* const list = "data/gazetteer-desk/components.json";
    folder_.Write(list, gazetteer::ReplaceAll(folder_.Read(list), "lib/gazetteer", "lib/old"));
    InSheet(look);
    EXPECT_EQ(tabs, pages);
    const auto id = [&](const char* value) {
        auto made = Session().Host().NewIdentifier();
        made->SetValue(value);
        return made;
    };
    // So does a list of one that had fewer pages.
    Session().Host().NewComponentRegistrar()->RegisterComponent(
        "", id("CVNGazetteer.TypesettingPropertyPage"), id(host::kElementPropertyPages), false);
    InSheet(look);
    EXPECT_EQ(tabs, pages);
    EXPECT_FALSE(window_->isWindowModified());

    // Another that is missed is told in one message, and the sheet still opens.
    const auto file = folder_.Write("gone.so", "");
    Session().Host().NewComponentRegistrar()->RegisterComponent(
        file, id("Some.Page"), id(host::kElementPropertyPages), true);
    std::filesystem::remove(file);
    tabs.clear();
    ExpectMessage("gone.so", "OK", [&](QWidget& sheet) { ActAndPress(sheet, look, "Cancel"); });
    Do("properties");
    EXPECT_EQ(tabs, pages);
}

TEST_F(Component, AnAppliedEditIsDrawnOnThePageOnShow) {
    Register(true);
    Do("nextPage");
    const auto before = DrawnListings();
    const Answer choose = [](QWidget& sheet) {
        auto& descending = support::Part<QRadioButton>(sheet, "OptSortOrder_1");
        EXPECT_FALSE(descending.isChecked());
        descending.click();
    };
    InSheet(choose);
    EXPECT_EQ(DrawnListings(), before);

    std::vector<std::string> applied;
    InSheet(
        [&](QWidget& sheet) {
            choose(sheet);
            Press(sheet, "Apply");
            applied = DrawnListings();
        },
        "OK");
    EXPECT_EQ(Session().Page(), 2);
    ASSERT_FALSE(applied.empty());
    EXPECT_GT(applied.front(), applied.back());
    EXPECT_EQ(DrawnListings(), applied);
    EXPECT_TRUE(window_->isWindowModified());
    EXPECT_EQ(Status().substr(0, 14), "900 listings, ");

    EXPECT_EQ(Action("undo").text(), "&Undo Properties");
    Do("undo");
    EXPECT_EQ(DrawnListings(), before);
    EXPECT_FALSE(Action("undo").isEnabled()) << "an OK without a change is no step";
    EXPECT_FALSE(window_->isWindowModified());
    Do("redo");
    EXPECT_EQ(DrawnListings(), applied);
    Do("save");
    EXPECT_FALSE(window_->isWindowModified());
    Do("undo");
    EXPECT_TRUE(window_->isWindowModified()) << "the file has the change";
    Do("save");
    Open(folder_.File("names.json"));
    EXPECT_EQ(DrawnListings().front(), "Alpha 0001");
    EXPECT_FALSE(Action("redo").isEnabled()) << "another document has no history";
}

// A new document of the window has the usual settings, which a step back brings again.
TEST_F(Component, TypesettingIsStoredWithStepsBackAndForth) {
    Register(true);
    const auto stored = [this] {
        return gazetteer::StoredTypesetting(Session().Document().Gazetteer(),
                                            Session().Host().Locale());
    };
    EXPECT_EQ(stored(), gazetteer::PrintTypesetting());
    const auto before = DrawnListings();
    gazetteer::Typesetting edited = gazetteer::PrintTypesetting();
    edited.leaderLeast = 7;
    InSheet(
        [](QWidget& sheet) {
            sheet.findChild<QTabWidget*>()->setCurrentIndex(1);
            support::Part<QSpinBox>(sheet, "LeaderLeast").setValue(7);
            Press(sheet, "Apply");
            support::Part<QAbstractButton>(sheet, "plainRules").click();
        },
        "OK");
    EXPECT_EQ(stored(), std::nullopt);
    const auto plain = DrawnListings();
    EXPECT_NE(plain, before) << "another number of lines";
    for (const auto& [action, expected] :
         {std::pair<const char*, std::optional<gazetteer::Typesetting>>{"undo", edited},
          {"undo", gazetteer::PrintTypesetting()},
          {"redo", edited},
          {"redo", std::nullopt}}) {
        Do(action);
        EXPECT_EQ(stored(), expected) << action;
        EXPECT_EQ(DrawnListings(), expected ? before : plain) << action;
    }
}

}  // namespace
