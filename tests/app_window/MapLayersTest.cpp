#include <QComboBox>
#include <QListView>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTabWidget>
#include <QToolButton>
#include <filesystem>

#include "app/document/Errors.h"
#include "app/window/layers/LocatePage.h"
#include "app_window/WindowStory.h"

namespace {

/// Lets somebody make an index from the layers of the example town.
class MapLayers : public window_test::WindowStory {
public:
    MapLayers() : town_(folder_.File("town.gpkg")) {
        std::filesystem::copy_file(GAZETTEER_SOURCE_DIR "/examples/town.gpkg", town_);
    }
    static QString Text(QWidget& dialog, const char* label) {
        return support::Part<QLabel>(dialog, label).text();
    }
    static void Choose(QWidget& dialog, const char* list, const QString& text) {
        support::Part<QComboBox>(dialog, list).setCurrentText(text);
    }
    void FillIn(QWidget& dialog) const {
        Type(dialog, "features1Line", town_);
        Choose(dialog, "features1Layer", "streets");
        Type(dialog, "features2Line", town_);
        Choose(dialog, "features2Layer", "parks");
        Type(dialog, "sheetsLine", town_);
        Choose(dialog, "sheetsLayer", "sheets");
        support::Part<QSpinBox>(dialog, "gridRows").setValue(7);
        support::Part<QSpinBox>(dialog, "gridColumns").setValue(5);
    }
    void FillInDialog(QWidget& dialog) const {
        support::Part<QTabWidget>(dialog, "sources").setCurrentIndex(1);
        FillIn(dialog);
    }
    /// What the choices of FillIn are on the command line.
    app::LocateOptions Options() const {
        app::LocateOptions options;
        options.features = {{town_ + "/streets", "name", {}, {}},
                            {town_ + "/parks", "name", {}, {}}};
        options.sheets = town_ + "/sheets";
        options.grid = "7x5";
        options.locale = "en_US";
        return options;
    }
    std::string Located(const app::LocateOptions& options) const {
        const host::Ref<host::IHostLocale> locale(Session().Document().DeskRef(),
                                                  &Session().Host().Locale());
        const app::LocatedTable table(options, locale, [](auto...) {});
        app::WriteTable(folder_.File("expected.csv"), table.Fields(),
                        [&](const app::RowTaker& take) { table.ForEach(take); });
        return folder_.Read("expected.csv");
    }
    static int MarkedPixels(QWidget& dialog) {
        const QImage map = support::Part<QWidget>(dialog, "sheetsMap").grab().toImage();
        const QColor mark = dialog.palette().color(QPalette::Highlight);
        int count = 0;
        for (int y = 0; y < map.height(); ++y)
            for (int x = 0; x < map.width(); ++x) count += map.pixelColor(x, y) == mark ? 1 : 0;
        return count;
    }

    std::string town_;
};

TEST_F(MapLayers, BecomeAnIndex) {
    DoWith("newDocument", [&](QWidget& dialog) {
        FillInDialog(dialog);
        EXPECT_EQ(support::Part<QLineEdit>(dialog, "locatedLine").text().toStdString(),
                  folder_.File("streets-listings.dbf"));
        Type(dialog, "features1Line", town_ + "/streets");
        EXPECT_EQ(support::Part<QLineEdit>(dialog, "locatedLine").text().toStdString(),
                  folder_.File("streets-listings.dbf"));
        Press(dialog, "Look Up");
        const QString told = support::Part<QPlainTextEdit>(dialog, "locatedSummary").toPlainText();
        EXPECT_TRUE(told.contains("on 8 sheets")) << told.toStdString();
        EXPECT_TRUE(told.contains("\ntown.gpkg/streets: 14 features")) << told.toStdString();
        auto& list = support::Part<QListView>(dialog, "locatedListings");
        QStringList names = support::RowTexts(list);
        EXPECT_GT(names.size(), 60);
        EXPECT_EQ(MarkedPixels(dialog), 0);
        list.setCurrentIndex(list.model()->index(static_cast<int>(names.indexOf("Am Markt")), 0));
        EXPECT_GT(MarkedPixels(dialog), 0);
        // What was found is of no use any more.
        Choose(dialog, "apart", "district");
        EXPECT_TRUE(support::RowTexts(list).isEmpty());
        Press(dialog, "Create");
    });
    EXPECT_TRUE(std::filesystem::exists(folder_.File("streets-listings.cpg")));
    EXPECT_TRUE(window_->windowTitle().startsWith("streets-listings (not saved)"));
    EXPECT_TRUE(std::ranges::any_of(DrawnListings(), [](const std::string& listing) {
        return listing.starts_with("Am Markt");
    }));
    // What was left out is told here, too.
    const auto& notices = Session().Notices();
    EXPECT_TRUE(std::ranges::any_of(notices, [](const std::string& notice) {
        return notice.starts_with("town.gpkg/parks: 1 feature without a name left out");
    })) << testing::PrintToString(notices);
}

struct ChoiceCase {
    const char* name;
    std::function<void(QWidget& page)> choose;
    std::function<void(app::LocateOptions& options)> option;
};

TEST_F(MapLayers, AreLocatedAsOnTheCommandLine) {
    const ChoiceCase cases[] = {
        {"name",
         [](QWidget& page) {
             support::Part<QComboBox>(page, "features2Field").setEditText("[name] (park)");
         },
         [](auto& options) { options.features[1].name = "[name] (park)"; }},
        {"where", [](QWidget& page) { Type(page, "features1Where", " district = 'Altstadt'"); },
         [](auto& options) { options.features[0].where = "district = 'Altstadt'"; }},
        {"constants",
         [](QWidget& page) {
             support::Part<QPlainTextEdit>(page, "features2Constants")
                 .setPlainText("Kind=park\n\nNote=a, b=c");
         },
         [](auto& options) {
             options.features[1].constants = {{"Kind", "park"}, {"Note", "a, b=c"}};
         }},
        {"leave out",
         [](QWidget& page) {
             support::Part<QSpinBox>(page, "gridRows").setValue(9);
             support::Part<QAbstractButton>(page, "leaveOut").click();
             EXPECT_EQ(support::Part<QLineEdit>(page, "rowLabels").placeholderText(), "A..J");
         },
         [](auto& options) {
             options.grid = "9x5";
             options.leftOut = "IO";
         }},
        {"origin", [](QWidget& page) { Choose(page, "origin", "At the bottom right"); },
         [](auto& options) { options.origin = "bottom-right"; }},
        {"own squares",
         [&](QWidget& page) {
             Type(page, "cellsLine", town_ + "/sheets");
             Choose(page, "cellsField", "page");
             Choose(page, "cellsField2", "page");
             EXPECT_FALSE(support::Part<QSpinBox>(page, "gridRows").isEnabled());
         },
         [&](auto& options) {
             options.grid.clear();
             options.cells = town_ + "/sheets";
             options.cellRow = options.cellColumn = "page";
         }},
        {"apart", [](QWidget& page) { Choose(page, "apart", "district"); },
         [](auto& options) { options.apart = {"district"}; }},
        {"distance",
         [](QWidget& page) { support::Part<QDoubleSpinBox>(page, "distance").setValue(500); },
         [](auto& options) { options.distance = 500; }},
        {"initial", [](QWidget& page) { support::Part<QAbstractButton>(page, "initial").click(); },
         [](auto& options) { options.initial = true; }},
    };
    const std::string before = Located(Options());
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        app::LocatePage page(Session(), nullptr);
        FillIn(page);
        one.choose(page);
        Type(page, "locatedLine", folder_.File(std::string(one.name) + ".csv"));
        ASSERT_TRUE(page.IsUsable());
        page.Write();
        auto options = Options();
        one.option(options);
        const std::string expected = Located(options);
        EXPECT_NE(expected, before);
        EXPECT_EQ(folder_.Read(std::string(one.name) + ".csv"), expected);
    }
}

TEST_F(MapLayers, BecomeAnIndexThatIsLinkedToTheirMapBook) {
    DoWith("newDocument", [&](QWidget& dialog) {
        FillInDialog(dialog);
        auto& other = support::Part<QLineEdit>(dialog, "bookLine");
        EXPECT_TRUE(other.isEnabled());
        Type(dialog, "writtenBookLine", folder_.File("book.json"));
        EXPECT_FALSE(other.isEnabled());
        Press(dialog, "Create");
    });
    ASSERT_TRUE(std::filesystem::exists(folder_.File("book.json")));
    std::string references;
    for (const auto& text : support::TestDesk::DrawnTexts(*Session().Document().Gazetteer(), 1))
        references += text + '\n';
    // The table has 2, 6 and 3 for the sheet, the row and the column.
    EXPECT_NE(references.find("6\u00A0F-3"), std::string::npos) << references.substr(0, 400);
}

TEST_F(MapLayers, HaveChoicesThatAreHiddenUntilTheyAreSet) {
    app::LocatePage page(Session(), nullptr);
    FillIn(page);
    const auto& where = support::Part<QLineEdit>(page, "features1Where");
    auto& more = support::Part<QToolButton>(page, "features1More");
    EXPECT_FALSE(where.isVisibleTo(&page));
    Type(page, "features1Where", "district = 'Altstadt'");
    EXPECT_TRUE(where.isVisibleTo(&page));
    more.click();
    EXPECT_FALSE(where.isVisibleTo(&page));
    EXPECT_EQ(more.text(), "More (1 set)");
    Type(page, "features1Where", "");
    EXPECT_EQ(more.text(), "More");

    // They are scrolled to where the page is low.
    page.resize(900, 300);
    page.show();
    support::Part<QToolButton>(page, "moreChoices").click();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return !support::Part<QLineEdit>(page, "writtenBookLine").visibleRegion().isEmpty();
    }));
}

TEST_F(MapLayers, HaveRoomThatATableDoesNotNeed) {
    DoWith("newDocument", [&](QWidget& dialog) {
        auto& sources = support::Part<QTabWidget>(dialog, "sources");
        const QSize ofTable = dialog.size();
        const int wanted = dialog.sizeHint().width();
        sources.setCurrentIndex(1);
        EXPECT_GT(dialog.sizeHint().width(), wanted);
        EXPECT_GT(dialog.width(), ofTable.width());
        EXPECT_GT(dialog.height(), ofTable.height());
        sources.setCurrentIndex(0);
        EXPECT_EQ(dialog.size(), ofTable);
        Press(dialog, "Cancel");
    });
}

TEST_F(MapLayers, AreReachedByTheKeysOfTheirLabels) {
    const std::pair<Qt::Key, const char*> keys[] = {{Qt::Key_F, "features1Line"},
                                                    {Qt::Key_S, "sheetsLine"},
                                                    {Qt::Key_G, "gridRows"},
                                                    {Qt::Key_C, "gridColumns"},
                                                    {Qt::Key_B, "locatedLine"}};
    DoWith("newDocument", [&](QWidget& dialog) {
        QTest::keyClick(&dialog, Qt::Key_Y, Qt::AltModifier);
        for (const auto& [key, name] : keys) {
            QTest::keyClick(&dialog, key, Qt::AltModifier);
            EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), name);
        }
        Press(dialog, "Cancel");
    });
}

TEST_F(MapLayers, ThatAreWrongAreToldWhereTheyStand) {
    const std::string kept = folder_.Write("streets-listings.dbf", "kept");
    DoWith("newDocument", [&](QWidget& dialog) {
        const auto& create = support::Part<QPushButton>(dialog, "lookUp");
        FillInDialog(dialog);
        EXPECT_TRUE(create.isEnabled());
        Type(dialog, "sheetsLine", folder_.File("none.gpkg"));
        EXPECT_EQ(Text(dialog, "sheetsFault"), "There is no such file.");
        EXPECT_FALSE(create.isEnabled());
        Type(dialog, "sheetsLine", folder_.Write("notes.txt", "no map"));
        EXPECT_TRUE(Text(dialog, "sheetsFault").contains("notes.txt"));

        FillIn(dialog);
        Type(dialog, "features2Line", folder_.File("none.gpkg"));
        EXPECT_FALSE(create.isEnabled());
        FillIn(dialog);
        Type(dialog, "rowLabels", "A..C");
        ExpectMessage("Labels of the grid rows A..C: these are 3 labels, but the grid 7x5 has 7");
        Press(dialog, "Look Up");
        Type(dialog, "rowLabels", "");
        ExpectMessage("exists already", "No");
        Press(dialog, "Create");
        Press(dialog, "Cancel");
    });
    EXPECT_EQ(folder_.Read("streets-listings.dbf"), "kept");
    EXPECT_FALSE(Session().HasDocument());
}

struct FaultCase {
    const char* sentence;
    std::function<void(QWidget& page)> choose;
};

TEST_F(MapLayers, HaveFaultsThatAreToldInTheWordsOfTheirControls) {
    const FaultCase cases[] = {
        {"The grid has rows, but no columns.",
         [](QWidget& page) { support::Part<QSpinBox>(page, "gridColumns").setValue(0); }},
        {"Labels of the grid columns 1..x: labels are given as",
         [](QWidget& page) { Type(page, "columnLabels", "1..x"); }},
        {"Name [nome]: ",
         [](QWidget& page) {
             support::Part<QComboBox>(page, "features1Field").setEditText("[nome]");
         }},
        {"Constants park: a constant is given as FIELD=VALUE.",
         [](QWidget& page) {
             support::Part<QPlainTextEdit>(page, "features1Constants").setPlainText("park");
         }},
        {"The table would have two fields \"district\"; Constants and Tell apart by",
         [](QWidget& page) {
             Choose(page, "apart", "district");
             support::Part<QPlainTextEdit>(page, "features1Constants").setPlainText("district=x");
         }},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.sentence);
        app::LocatePage page(Session(), nullptr);
        FillIn(page);
        one.choose(page);
        try {
            page.Write();
            ADD_FAILURE() << "nothing was wrong";
        } catch (const app::UsageError& fault) {
            const std::string told = fault.what();
            EXPECT_TRUE(told.starts_with(one.sentence)) << told;
            EXPECT_EQ(told.find("--"), std::string::npos) << told;
        }
        EXPECT_FALSE(std::filesystem::exists(folder_.File("streets-listings.dbf")));
    }
}

}  // namespace
