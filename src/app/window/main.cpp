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

// Shows uncaught exceptions of event handlers and continues.
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

int Run(char** argv, const std::string& locale, const std::string& document) {
    int argc = 1;  // The program name only; Parse has read the arguments.
    const Application application(argc, argv);
    QApplication::setOrganizationName("gazetteer-desk");
    QApplication::setApplicationName("gazetteer-desk");
    QApplication::setDesktopFileName("gazetteer-desk");
    app::MainWindow window(locale);
    window.show();
    // Deferred until the window is shown, since opening can show dialogs.
    if (!document.empty())
        QTimer::singleShot(0, &window,
                           [&window, path = desk::ToQt(document)] { window.Open(path); });
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    // Makes a write beyond the file size limit fail instead of ending the program.
    std::signal(SIGXFSZ, SIG_IGN);
    std::string document;
    std::string locale;
    CLI::App program("Shows the printed index of a map book, and edits what it is made of.",
                     "gazetteer-desk");
    program.set_version_flag("--version", GAZETTEER_VERSION);
    program.add_option("DOC", document, "Document to open, or a listing table to make one from");
    app::AddText(program, "--locale", locale,
                 "Locale for sorting and numbers, such as is or de_DE (default: yours)");
    if (const auto status = app::Parse(program, argc, argv)) return *status;
    try {
        return Run(argv, locale, document);
    } catch (const std::exception&) {
        std::fprintf(stderr, "gazetteer-desk: %s\n", app::CurrentSentence().c_str());
        return app::kCouldNot;
    }
}
