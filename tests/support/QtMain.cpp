#include <QApplication>
#include <QSettings>
#include <cstdio>
#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace {

/// The offscreen platform says at every window what it does not do.
void PassOn(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (text.startsWith("This plugin does not support") || text.contains("XDG_RUNTIME_DIR")) return;
    std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}

}  // namespace

/// Runs tests of widgets: without a display, and with settings of their own.
int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(PassOn);
    const support::TemporaryFolder settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromStdString(settings.Path()));
    QApplication application(count, arguments);
    QApplication::setOrganizationName("tests");
    QApplication::setApplicationName("tests");
    return RUN_ALL_TESTS();
}
