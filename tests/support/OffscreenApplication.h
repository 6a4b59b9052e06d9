#pragma once

#include <QApplication>
#include <QSettings>

#include "support/TemporaryFolder.h"

namespace support {

/// An application that needs no display, with settings in a folder of its own.
class OffscreenApplication {
public:
    OffscreenApplication(int& count, char** arguments, const char* name)
        : application_(Prepared(count), arguments) {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                           QString::fromStdString(folder_.Path()));
        QApplication::setOrganizationName(name);
        QApplication::setApplicationName(name);
    }

    const TemporaryFolder& Folder() const { return folder_; }

private:
    static int& Prepared(int& count) {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        return count;
    }
    TemporaryFolder folder_;
    QApplication application_;
};

}  // namespace support
