#include <QDir>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTabBar>
#include <QTabWidget>
#include <cstdlib>

#include "app/window/MainWindow.h"
#include "app/window/PageView.h"
#include "desk/components/ComponentLibrary.h"
#include "support/OffscreenApplication.h"
#include "support/Widgets.h"

/// Takes the pictures of the window and of every tab of the property page, with an example. The
/// same program on the same fonts gives the same pictures.

namespace {

void Take(QWidget& widget, const QString& path) {
    QApplication::processEvents();
    if (widget.grab().save(path + ".png", "PNG")) return;
    std::fprintf(stderr, "no picture %s.png\n", qPrintable(path));
    std::exit(1);
}

// A name for a file: "Index Source" becomes "index-source".
QString FileName(QString title) {
    title = title.toLower().remove('&');
    return title.replace(QRegularExpression("[^a-z0-9]+"), "-");
}

// The sheet itself has tabs, its page has, and one of those has tabs again.
void TakeTabs(QWidget& sheet, const QWidget& whole, const QString& path) {
    auto* const tabs = whole.findChild<QTabWidget*>();
    if (tabs == nullptr) return Take(sheet, path);
    for (int tab = 0; tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        TakeTabs(sheet, *tabs->widget(tab), path + '-' + FileName(tabs->tabText(tab)));
    }
}

void TakeWindow(const QString& table, const QString& folder) {
    app::MainWindow window("en_US");
    window.resize(1180, 860);
    window.show();
    Take(window, folder + "start");
    const auto whenOpen = [](const std::function<void(QWidget&)>& take) {
        support::WhenModal([take](QWidget& dialog) {
            QTest::qWait(300);
            take(dialog);
            dialog.close();
        });
    };
    const auto trigger = [&](const char* action) { window.findChild<QAction*>(action)->trigger(); };

    whenOpen([&](QWidget& dialog) {
        Take(dialog, folder + "new-document");
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    window.Open(table);
    // No picture is to show where it was taken.
    window.TheSession().Document().Properties()->SetItem("IndexDatabaseFile", table.toStdString());
    window.TheSession().SaveTo("czechia-slovakia.json");
    window.TheSession().TurnTo(2);
    trigger("nextPage");
    window.View().SetFit(app::PageView::Fit::Width);
    Take(window, folder + "window");

    whenOpen([&](QWidget& dialog) { Take(dialog, folder + "export"); });
    trigger("exportPages");
    whenOpen([&](QWidget& sheet) { TakeTabs(sheet, sheet, folder + "sheet"); });
    trigger("properties");
    window.View().SetFit(app::PageView::Fit::Page);
    Take(window, folder + "selected");
    trigger("draft");
    Take(window, folder + "draft");
    trigger("draft");
    QLineEdit& filter = *window.findChild<QLineEdit*>("pageFilter");
    filter.setText("nad lab");
    Take(window, folder + "search");
    filter.clear();
    QFile::rename(table, table + ".away");
    trigger("refresh");
    Take(window, folder + "notice");
    window.TheSession().SaveTo(window.TheSession().Path());
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::fprintf(stderr, "usage: desk_pictures TABLE FOLDER\n");
        return 2;
    }
    const support::OffscreenApplication application(count, arguments, "pictures");
    QApplication::setStyle("Fusion");
    const QString home = QString::fromStdString(application.Folder().Path());
    qputenv("XDG_DATA_HOME", (home + "/data").toLocal8Bit());
    const QString pictures = QFileInfo(arguments[2]).absoluteFilePath() + '/';
    const QString table = QFileInfo(arguments[1]).fileName();
    QFile::copy(arguments[1], home + '/' + table);
    QDir().mkpath(pictures);
    QDir::setCurrent(home);
    {
        app::MainWindow registers("en_US");
        desk::ComponentLibrary(desk::LibraryOfProgram("gazetteer/libCVNGazetteer.so"))
            .Register(registers.TheSession().Document().DeskRef(), true);
    }
    TakeWindow(table, pictures);
    return 0;
}
