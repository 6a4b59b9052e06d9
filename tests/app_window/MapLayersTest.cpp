#include <QComboBox>
#include <QListView>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTabWidget>
#include <filesystem>

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
        support::Part<QTabWidget>(dialog, "sources").setCurrentIndex(1);
        Type(dialog, "features1Line", town_);
        Choose(dialog, "features1Layer", "streets");
        Type(dialog, "features2Line", town_);
        Choose(dialog, "features2Layer", "parks");
        Type(dialog, "sheetsLine", town_);
        Choose(dialog, "sheetsLayer", "sheets");
        support::Part<QSpinBox>(dialog, "gridRows").setValue(7);
        support::Part<QSpinBox>(dialog, "gridColumns").setValue(5);
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
        FillIn(dialog);
        EXPECT_EQ(support::Part<QLineEdit>(dialog, "locatedLine").text().toStdString(),
                  folder_.File("streets-listings.dbf"));
        Press(dialog, "Look Up");
        const QString told = support::Part<QPlainTextEdit>(dialog, "locatedSummary").toPlainText();
        EXPECT_TRUE(told.contains("on 8 sheets")) << told.toStdString();
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
}

TEST_F(MapLayers, ThatAreWrongAreToldWhereTheyStand) {
    const std::string kept = folder_.Write("streets-listings.dbf", "kept");
    DoWith("newDocument", [&](QWidget& dialog) {
        const auto& create = support::Part<QPushButton>(dialog, "lookUp");
        FillIn(dialog);
        EXPECT_TRUE(create.isEnabled());
        Type(dialog, "sheetsLine", folder_.File("none.gpkg"));
        EXPECT_EQ(Text(dialog, "sheetsFault"), "There is no such file.");
        EXPECT_FALSE(create.isEnabled());
        Type(dialog, "sheetsLine", folder_.Write("notes.txt", "no map"));
        EXPECT_TRUE(Text(dialog, "sheetsFault").contains("notes.txt"));

        FillIn(dialog);
        Type(dialog, "rowLabels", "A..C");
        ExpectMessage("these are 3 labels, but the grid 7x5 has 7");
        Press(dialog, "Look Up");
        Type(dialog, "rowLabels", "");
        ExpectMessage("exists already", "No");
        Press(dialog, "Create");
        Press(dialog, "Cancel");
    });
    EXPECT_EQ(folder_.Read("streets-listings.dbf"), "kept");
    EXPECT_FALSE(Session().HasDocument());
}

}  // namespace
