#include "desk/window/FolderPlaces.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QStorageInfo>
#include <array>
#include <utility>

namespace desk {

namespace {

constexpr char kSetting[] = "folderConnections";

/// Where volumes come and go; all others belong to the system.
constexpr std::array kVolumeRoots = {"/media/", "/run/media/", "/mnt/"};

bool IsVolume(const QString& root) {
    for (const char* start : kVolumeRoots)
        if (root.startsWith(QLatin1String(start))) return true;
    return false;
}

class PlaceList {
public:
    void Add(const QString& name, const QString& path, bool own = false) {
        const QFileInfo info(path);
        if (path.isEmpty() || (!own && !info.isDir())) return;
        for (const FolderPlace& place : places)
            if (place.path == QDir::cleanPath(path)) return;
        const QString clean = QDir::cleanPath(path);
        places.push_back({name.isEmpty() ? clean : name, clean, own});
    }

    QList<FolderPlace> places;
};

}  // namespace

FolderPlaces::FolderPlaces(QString documentFolder) : documentFolder_(std::move(documentFolder)) {}

QList<FolderPlace> FolderPlaces::List() const {
    PlaceList list;
    list.Add("Document's folder", documentFolder_);
    list.Add("Home", QDir::homePath());
    const std::array standard = {QStandardPaths::DesktopLocation, QStandardPaths::DocumentsLocation,
                                 QStandardPaths::DownloadLocation};
    for (const auto location : standard)
        list.Add(QStandardPaths::displayName(location), QStandardPaths::writableLocation(location));
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
        if (volume.isReady() && IsVolume(volume.rootPath() + '/'))
            list.Add(QDir(volume.rootPath()).dirName(), volume.rootPath());
    list.Add("File system", QDir::rootPath());
    // The user's own stay although they may be away for now: that is for the user to say.
    for (const QString& path : QSettings().value(kSetting).toStringList())
        list.Add(QDir(path).dirName(), path, true);
    return list.places;
}

void FolderPlaces::Add(const QString& path) const {
    const QString clean = QDir::cleanPath(path);
    for (const FolderPlace& place : List())
        if (place.path == clean) return;
    QSettings settings;
    settings.setValue(kSetting, settings.value(kSetting).toStringList() << clean);
}

void FolderPlaces::Remove(const QString& path) const {
    QSettings settings;
    QStringList paths = settings.value(kSetting).toStringList();
    paths.removeAll(QDir::cleanPath(path));
    settings.setValue(kSetting, paths);
}

}  // namespace desk
