#include <CLI/CLI.hpp>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <csignal>
#include <cstdio>

#include "app/document/ArgumentParser.h"
#include "app/document/Errors.h"
#include "app/window/MainWindow.h"
#include "desk/window/WidgetText.h"

namespace {

struct Arguments {
    std::string document;
    std::string locale;
};

// What nobody else took care of is told, and the window goes on.
class Application final : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception&) {
            const QString sentence = desk::ToQt(app::CurrentSentence());
            QMessageBox box(QMessageBox::Critical, "Gazetteer", sentence, QMessageBox::Ok,
                            QApplication::activeWindow());
            box.setTextFormat(Qt::PlainText);
            box.exec();
            return true;
        }
    }
};

int Run(int argc, char** argv, const Arguments& arguments) {
    // The program's own arguments are read already.
    argc = 1;
    const Application application(argc, argv);
    QApplication::setOrganizationName("gazetteer-desk");
    QApplication::setApplicationName("gazetteer-desk");
    QApplication::setDesktopFileName("gazetteer-desk");
    app::MainWindow window(arguments.locale);
    window.show();
    // Once the window is there, for what has to be said about the document.
    if (!arguments.document.empty())
        QTimer::singleShot(0, &window,
                           [&window, path = desk::ToQt(arguments.document)] { window.Open(path); });
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    // A file that would grow beyond the user's limit is a failed write like any other.
    std::signal(SIGXFSZ, SIG_IGN);
    Arguments arguments;
    CLI::App program("Shows the printed index of a map book, and edits what it is made of.",
                     "gazetteer-desk");
    program.set_version_flag("--version", GAZETTEER_VERSION);
    program.add_option("DOC", arguments.document,
                       "Document to open, or a listing table (.dbf) to make one from");
    app::AddText(program, "--locale", arguments.locale,
                 "Locale for sorting and numbers, such as is or de_DE (default: yours)");
    if (const auto status = app::Parse(program, argc, argv)) return *status;
    try {
        return Run(argc, argv, arguments);
    } catch (const std::exception&) {
        std::fprintf(stderr, "gazetteer-desk: %s\n", app::CurrentSentence().c_str());
        return app::kCouldNot;
    }
}
