#include "app/window/RecentDocuments.h"

#include <QFileInfo>
#include <QSettings>

namespace app {
namespace {

constexpr char kSetting[] = "recentDocuments";
constexpr qsizetype kMost = 8;

QString FullName(const QString& path) {
    return QFileInfo(path).absoluteFilePath();
}

}  // namespace

QStringList RecentDocuments::Paths() {
    return QSettings().value(kSetting).toStringList();
}

void RecentDocuments::Add(const QString& path) {
    QStringList paths = Paths();
    paths.removeAll(FullName(path));
    paths.prepend(FullName(path));
    QSettings().setValue(kSetting, paths.first(qMin(kMost, paths.size())));
}

void RecentDocuments::Remove(const QString& path) {
    QStringList paths = Paths();
    paths.removeAll(FullName(path));
    QSettings().setValue(kSetting, paths);
}

void RecentDocuments::Clear() {
    QSettings().remove(kSetting);
}

}  // namespace app
