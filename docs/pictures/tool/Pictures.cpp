#include <QAbstractButton>
#include <QComboBox>
#include <QCommandLineParser>
#include <QDir>
#include <QDockWidget>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTabWidget>
#include <QTreeWidget>

#include "Taker.h"
#include "app/document/SettingsEdit.h"
#include "app/window/PageView.h"
#include "app/window/RunDialog.h"
#include "desk/components/ComponentLibrary.h"
#include "desk/components/SharedLibrary.h"
#include "support/OffscreenApplication.h"
#include "support/Widgets.h"

/// Takes a picture of the window in several states, of every dialog and of every tab, with an
/// example. The same program on the same fonts gives the same pictures.

namespace {

using app::MainWindow;
using pictures::Picture;

constexpr char kDocument[] = "czechia-slovakia.json";

auto Trigger(const char* action) {
    return [action](MainWindow& window) { window.findChild<QAction*>(action)->trigger(); };
}

void OpenDocument(MainWindow& window) {
    window.Open(kDocument);
    window.TheSession().TurnTo(2);
    Trigger("nextPage")(window);
    window.View().SetFit(app::PageView::Fit::Width);
}

void Search(MainWindow& window) {
    Trigger("draft")(window);
    window.findChild<QLineEdit*>("pageFilter")->setText("nad lab");
}

void SetTypesetting(MainWindow& window, const std::optional<gazetteer::Typesetting>& typesetting) {
    app::SettingsEdit edit(window.TheSession().Document());
    edit.Typesetting() = typesetting;
    edit.StoreWithoutWarnings();
    Trigger("refresh")(window);
}

// The list of findings, with the first one marked on its page. The plain rules leave some.
void ShowFindings(MainWindow& window) {
    SetTypesetting(window, std::nullopt);
    window.findChild<QAbstractButton*>("showFindings")->click();
    auto* const list = window.findChild<QTreeWidget*>("findingList");
    list->setCurrentItem(list->topLevelItem(0)->child(0));
}

void HideFindings(MainWindow& window) {
    window.findChild<QDockWidget*>("findingsDock")->close();
    SetTypesetting(window, gazetteer::PrintTypesetting());
}

// Two layers on the sheets of an atlas, with a river that runs over several.
void FillLayers() {
    auto& dialog = *QApplication::activeModalWidget();
    support::Part<QTabWidget>(dialog, "sources").setCurrentIndex(1);
    const auto fill = [&](const char* name, const char* layer) {
        const std::string field = name;
        support::Part<QLineEdit>(dialog, (field + "Line").c_str()).setText("europe.gpkg");
        support::Part<QComboBox>(dialog, (field + "Layer").c_str()).setCurrentText(layer);
    };
    fill("features1", "places");
    fill("features2", "rivers");
    fill("sheets", "sheets");
    support::Part<QSpinBox>(dialog, "gridRows").setValue(8);
    support::Part<QSpinBox>(dialog, "gridColumns").setValue(6);
    support::Part<QAbstractButton>(dialog, "lookUp").click();
    auto& list = support::Part<QListView>(dialog, "locatedListings");
    const auto found = list.model()->match(list.model()->index(0, 0), Qt::DisplayRole, "Danube");
    if (found.isEmpty()) return;
    list.setCurrentIndex(found.front());
    list.scrollTo(found.front(), QAbstractItemView::PositionAtCenter);
}

// The choices that are seldom needed.
void FillMoreLayers() {
    FillLayers();
    auto& dialog = *QApplication::activeModalWidget();
    support::Part<QComboBox>(dialog, "features2Field").setEditText("[name] (river)");
    support::Part<QLineEdit>(dialog, "features1Where").setText("population > 100000");
    support::Part<QPlainTextEdit>(dialog, "features1Constants").setPlainText("Kind=place");
    support::Part<QComboBox>(dialog, "origin").setCurrentIndex(2);
    support::Part<QLineEdit>(dialog, "writtenBookLine").setText("europe-book.json");
}

void ShowLayers(MainWindow& window) {
    QTimer::singleShot(50, FillLayers);
    Trigger("newDocument")(window);
}

void ShowMoreLayers(MainWindow& window) {
    QTimer::singleShot(50, FillMoreLayers);
    Trigger("newDocument")(window);
}

void ShowFailure(MainWindow& window) {
    host::Failure failure(host::kFailureUnspecified, "",
                          "The expression of the column Listing has no field named Nowhere.");
    failure.AddFact("column", "Listing");
    failure.AddFact("text", "[Nowhere]$$DOTS");
    const std::string stack = "CALL STACK\n\tPopulateIndexTable\n\tSetIndexElement\n\tApply";
    window.TheSession().Host().Dialogs().MessageBox(
        {"Unexpected Program Error", failure.cause + "\n\n" + stack, host::kStopOk, &failure});
}

void ShowRun(MainWindow& window) {
    auto* const dialog = new app::RunDialog(&window);
    dialog->Show({"Composing record 48213 of 100000 (48 %)", 48});
    dialog->show();
}

void LoseTable(MainWindow& window) {
    window.findChild<QLineEdit*>("pageFilter")->clear();
    QFile::rename("czechia-slovakia.dbf", "away.dbf");
    Trigger("refresh")(window);
}

// In this order: later pictures show what earlier ones have done.
const Picture kPictures[] = {
    {"start", [](MainWindow&) {}},
    {"new-document", [](MainWindow& window) { window.Open("czechia-slovakia.dbf"); }},
    {"choose-table", Trigger("newDocument"), "tableBrowse"},
    {"map-layers", ShowLayers},
    {"map-layers-more", ShowMoreLayers},
    {"window", OpenDocument},
    {"findings", ShowFindings},
    {"page-setup",
     [](MainWindow& window) {
         HideFindings(window);
         Trigger("pageSetup")(window);
     }},
    {"export", Trigger("exportPages")},
    {"print", Trigger("print")},
    {"run", ShowRun},
    {"about", Trigger("about")},
    {"manual", Trigger("manual")},
    {"sheet", Trigger("properties")},
    {"wrong-number", Trigger("properties"), "txtTopMargin", "wide"},
    {"text-symbol", Trigger("properties"), "cmdColumnFont"},
    {"fill-symbol", Trigger("properties"), "cmdColumnBackgroundsymbol"},
    {"expression", Trigger("properties"), "cmdExpression"},
    {"choose-database", Trigger("properties"), "cmdSetNewFileName"},
    {"add-column", Trigger("properties"), "cmdAdd"},
    {"remove-column", Trigger("properties"), "cmdRemove"},
    {"selected", [](MainWindow& window) { window.View().SetFit(app::PageView::Fit::Page); }},
    {"draft", Trigger("draft")},
    {"search", Search},
    {"unsaved", [](MainWindow& window) { window.close(); }},
    {"failure", ShowFailure},
    {"notice", LoseTable},
};

void MakeDocument() {
    MainWindow window("en_US");
    auto& session = window.TheSession();
    desk::ComponentLibrary(desk::LibraryOfProgram("gazetteer/libCVNGazetteer.so"))
        .Register(session.Document().DeskRef(), true);
    support::WhenModal([](QWidget& dialog) { QMetaObject::invokeMethod(&dialog, "accept"); });
    window.Open("czechia-slovakia.dbf");
    session.SaveTo(kDocument);
}

QPalette Dark() {
    QPalette dark(QColor(49, 54, 59), QColor(42, 46, 50));
    dark.setColor(QPalette::Base, QColor(27, 30, 32));
    dark.setColor(QPalette::AlternateBase, QColor(35, 38, 41));
    dark.setColor(QPalette::Highlight, QColor(61, 174, 233));
    dark.setColor(QPalette::Link, QColor(29, 153, 243));
    dark.setColor(QPalette::PlaceholderText, QColor(161, 169, 177));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, QColor(110, 113, 117));
    return dark;
}

// The platform without a display takes its screen from a file.
void SetScreen(const QString& folder, QSize pixels, const QString& scale) {
    QFile file(folder + "/screen.json");
    if (!file.open(QIODevice::WriteOnly)) qFatal("cannot write the screen");
    file.write(QString("{\"screens\": [{\"name\": \"screen\", \"x\": 0, \"y\": 0, \"width\": %1, "
                       "\"height\": %2, \"logicalDpi\": 96, \"logicalBaseDpi\": 96, \"dpr\": 1}]}")
                   .arg(pixels.width())
                   .arg(pixels.height())
                   .toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toUtf8());
    qputenv("QT_SCALE_FACTOR", scale.toUtf8());
}

}  // namespace

int main(int count, char** arguments) {
    QCommandLineParser parser;
    const QCommandLineOption dark("dark", "on a dark desktop");
    const QCommandLineOption scale("scale", "factor of the screen, such as 2", "factor", "1");
    const QCommandLineOption small("small", "on 1366 by 768 pixels at 125 %");
    parser.addOptions({dark, scale, small});
    QStringList given;
    for (int i = 0; i < count; ++i) given << QString::fromLocal8Bit(arguments[i]);
    if (!parser.parse(given) || parser.positionalArguments().size() != 2) {
        std::fprintf(stderr, "usage: desk_pictures TABLE FOLDER [--dark] [--scale N] [--small]\n");
        return 2;
    }
    const QString pictures = QFileInfo(parser.positionalArguments()[1]).absoluteFilePath() + '/';
    QDir().mkpath(pictures);
    const support::TemporaryFolder screen;
    const double factor = parser.value(scale).toDouble();
    if (parser.isSet(small))
        SetScreen(QString::fromStdString(screen.Path()), {1366, 768}, "1.25");
    else
        SetScreen(QString::fromStdString(screen.Path()), QSize(1600, 1000) * factor,
                  parser.value(scale));
    const support::OffscreenApplication application(count, arguments, "pictures");
    QApplication::setStyle("Fusion");
    if (parser.isSet(dark)) QApplication::setPalette(Dark());
    const QString home = QString::fromStdString(application.Folder().Path());
    qputenv("XDG_DATA_HOME", (home + "/data").toLocal8Bit());
    QFile::copy(parser.positionalArguments()[0], home + "/czechia-slovakia.dbf");
    QFile::copy(QFileInfo(parser.positionalArguments()[0]).path() + "/europe.gpkg",
                home + "/europe.gpkg");
    QDir::setCurrent(home);
    MakeDocument();

    MainWindow window("en_US");
    window.show();
    pictures::Taker taker(pictures);
    for (const Picture& picture : kPictures) {
        taker.Take(picture, window);
        // No picture is to show where it was taken.
        if (window.TheSession().HasDocument())
            window.TheSession().Document().Properties()->SetItem(
                "IndexDatabaseFile", std::string("czechia-slovakia.dbf"));
    }
    return taker.AllFitted() ? 0 : 1;
}
