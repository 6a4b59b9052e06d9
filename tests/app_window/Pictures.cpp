#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSettings>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <functional>

#include "app/window/MainWindow.h"
#include "app/window/PageView.h"
#include "desk/components/ComponentLibrary.h"
#include "support/TemporaryFolder.h"

/// Takes the pictures of the window and of every tab of the property page, with an example. The
/// same program on the same fonts gives the same pictures.

namespace {

// The offscreen platform says at every window what it does not do.
void PassOn(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (text.startsWith("This plugin does not support") || text.contains("XDG_RUNTIME_DIR")) return;
    std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}

class Album {
public:
    Album(const QString& folder, const QString& suffix) : folder_(folder), suffix_(suffix) {
        if (!QDir().mkpath(folder)) std::fprintf(stderr, "no folder %s\n", qPrintable(folder));
    }

    void Take(QWidget& widget, const QString& name) {
        QApplication::processEvents();
        const QString path = folder_ + '/' + name + suffix_ + ".png";
        if (!widget.grab().save(path, "PNG")) {
            std::fprintf(stderr, "no picture %s\n", qPrintable(path));
            failed_ = true;
        }
    }

    bool Failed() const { return failed_; }

private:
    QString folder_;
    QString suffix_;
    bool failed_ = false;
};

// A name for a file: "Index Source" becomes "index-source".
QString FileName(QString title) {
    title = title.toLower().remove('&');
    return title.replace(QRegularExpression("[^a-z0-9]+"), "-");
}

// The sheet itself has tabs, its page has, and one of those has tabs again.
void TakeTabs(Album& album, QWidget& sheet, const QWidget& whole, const QString& name) {
    auto* const tabs = whole.findChild<QTabWidget*>();
    if (tabs == nullptr) return album.Take(sheet, name);
    for (int tab = 0; tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        TakeTabs(album, sheet, *tabs->widget(tab), name + '-' + FileName(tabs->tabText(tab)));
    }
}

void WhenOpen(std::function<void(QWidget&)> action) {
    QTimer::singleShot(300, qApp, [action = std::move(action)] {
        QWidget* const modal = QApplication::activeModalWidget();
        if (modal == nullptr) return WhenOpen(action);
        action(*modal);
        modal->close();
    });
}

void Trigger(app::MainWindow& window, const char* action) {
    window.findChild<QAction*>(action)->trigger();
}

void TakeWindow(Album& album, const QString& table) {
    app::MainWindow window("en_US");
    window.resize(1180, 860);
    window.show();
    album.Take(window, "start");

    WhenOpen([&](QWidget& dialog) {
        album.Take(dialog, "new-document");
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    window.Open(table);
    // No picture is to show where it was taken.
    window.TheSession().Document().Properties()->SetItem("IndexDatabaseFile", table.toStdString());
    window.TheSession().SaveTo("czechia-slovakia.json");
    window.TheSession().TurnTo(2);
    Trigger(window, "nextPage");
    window.View().SetFit(app::PageView::Fit::Width);
    album.Take(window, "window");

    WhenOpen([&](QWidget& dialog) { album.Take(dialog, "export"); });
    Trigger(window, "exportPages");

    WhenOpen([&](QWidget& sheet) { TakeTabs(album, sheet, sheet, "sheet"); });
    Trigger(window, "properties");
    window.View().SetFit(app::PageView::Fit::Page);
    album.Take(window, "selected");
    Trigger(window, "draft");
    album.Take(window, "draft");
    Trigger(window, "draft");
    QLineEdit& filter = *window.findChild<QLineEdit*>("pageFilter");
    filter.setText("nad lab");
    album.Take(window, "search");
    filter.clear();
    QFile::rename(table, table + ".away");
    Trigger(window, "refresh");
    album.Take(window, "notice");
    window.TheSession().SaveTo(window.TheSession().Path());
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) {
        std::fprintf(stderr, "usage: desk_pictures TABLE FOLDER [SUFFIX]\n");
        return 2;
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(PassOn);
    const support::TemporaryFolder home;
    const QString folder = QString::fromStdString(home.Path());
    qputenv("XDG_DATA_HOME", (folder + "/data").toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
    QApplication application(count, arguments);
    QApplication::setOrganizationName("pictures");
    QApplication::setApplicationName("pictures");
    QApplication::setStyle("Fusion");
    Album album(QFileInfo(arguments[2]).absoluteFilePath(), count > 3 ? arguments[3] : "");
    const QString table = QFileInfo(arguments[1]).fileName();
    QFile::copy(arguments[1], folder + '/' + table);
    QDir::setCurrent(folder);
    {
        app::MainWindow registers("en_US");
        desk::ComponentLibrary(desk::LibraryOfProgram("gazetteer/libCVNGazetteer.so"))
            .Register(registers.TheSession().Document().DeskRef(), true);
    }
    TakeWindow(album, table);
    return album.Failed() ? 1 : 0;
}
