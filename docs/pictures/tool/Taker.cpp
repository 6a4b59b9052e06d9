#include "Taker.h"

#include <QLineEdit>
#include <QRegularExpression>
#include <QScreen>
#include <QTabWidget>
#include <cstdio>
#include <cstdlib>

#include "support/Widgets.h"

namespace pictures {
namespace {

constexpr int kSettled = 300;  // Milliseconds, for the previews of a dialog.

// A name for a file: "Index Source" becomes "index-source".
QString FileName(QString title) {
    title = title.toLower().remove('&');
    return title.replace(QRegularExpression("[^a-z0-9]+"), "-");
}

QDialog* OtherWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* dialog = qobject_cast<QDialog*>(widget); dialog != nullptr && widget->isVisible())
            return dialog;
    return nullptr;
}

// Brings the tabs around a control to the front.
void Reveal(QWidget& control) {
    for (QWidget* part = &control; part->parentWidget() != nullptr; part = part->parentWidget()) {
        auto* tabs = qobject_cast<QTabWidget*>(part->parentWidget()->parentWidget());
        if (tabs != nullptr && tabs->indexOf(part) >= 0) tabs->setCurrentWidget(part);
    }
}

}  // namespace

void Taker::Save(QWidget& subject, const QString& name) {
    QApplication::processEvents();
    const QSize room = subject.screen()->availableSize();
    if (subject.width() > room.width() || subject.height() > room.height()) {
        std::fprintf(stderr, "%s is larger than the screen: %d x %d\n", qPrintable(name),
                     subject.width(), subject.height());
        allFitted_ = false;
    }
    if (subject.grab().save(folder_ + name + ".png", "PNG")) return;
    std::fprintf(stderr, "no picture %s.png\n", qPrintable(name));
    std::exit(1);
}

// The sheet itself has tabs, its page has, and one of those has tabs again.
void Taker::TakeTabs(QWidget& subject, const QWidget& part, const QString& name) {
    auto* const tabs = part.findChild<QTabWidget*>();
    if (tabs == nullptr) return Save(subject, name);
    for (int tab = 0; tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        TakeTabs(subject, *tabs->widget(tab), name + '-' + FileName(tabs->tabText(tab)));
    }
}

void Taker::TakeDialog(const Picture& picture, QWidget& dialog) {
    QTest::qWait(kSettled);
    if (picture.button == nullptr) {
        TakeTabs(dialog, dialog, picture.name);
    } else {
        auto& control = support::Part<QWidget>(dialog, picture.button);
        Reveal(control);
        if (picture.text != nullptr) {
            support::Retype(dynamic_cast<QLineEdit&>(control), picture.text);
            Save(dialog, picture.name);
        } else {
            const Picture inner{picture.name, {}};
            support::WhenModal([this, inner](QWidget& opened) { TakeDialog(inner, opened); });
            dynamic_cast<QAbstractButton&>(control).click();
        }
    }
    dynamic_cast<QDialog&>(dialog).reject();
}

void Taker::Take(const Picture& picture, app::MainWindow& window) {
    bool taken = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr || taken) return;
        taken = true;
        watch.stop();
        TakeDialog(picture, *modal);
    });
    watch.start(10);
    picture.open(window);
    if (taken) return;
    watch.stop();
    QTest::qWait(kSettled);
    QDialog* const other = OtherWindow();
    Save(other != nullptr ? *static_cast<QWidget*>(other) : window, picture.name);
    if (other != nullptr) other->close();
}

}  // namespace pictures
