#include "desk/window/PlacesPanel.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QVBoxLayout>
#include <array>
#include <utility>

namespace desk {
namespace {

constexpr char kSetting[] = "folderConnections";

/// Mount points of removable volumes; other mounts belong to the system.
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

/// Data roles of an item.
constexpr int kPath = Qt::UserRole;
constexpr int kOwn = Qt::UserRole + 1;

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
    // Kept even if missing: a volume may be mounted again later.
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

PlacesPanel::PlacesPanel(const QString& documentFolder, Listeners listeners, QWidget* parent)
    : QWidget(parent),
      places_(documentFolder),
      listeners_(std::move(listeners)),
      list_(new QListWidget(this)),
      add_(new QPushButton("&Add Folder...", this)),
      remove_(new QPushButton("&Remove", this)) {
    list_->setObjectName("places");
    list_->setAccessibleName("Places");
    list_->setTextElideMode(Qt::ElideMiddle);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    list_->setIconSize({icon, icon});
    list_->setMinimumWidth(fontMetrics().averageCharWidth() * 14);
    add_->setObjectName("addPlace");
    remove_->setObjectName("removePlace");
    add_->setAutoDefault(false);
    remove_->setAutoDefault(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(list_, 1);
    layout->addWidget(add_);
    layout->addWidget(remove_);

    const auto go = [this](QListWidgetItem* item) { listeners_.go(item->data(kPath).toString()); };
    connect(list_, &QListWidget::itemActivated, this, go);
    connect(list_, &QListWidget::itemClicked, this, go);
    connect(list_, &QListWidget::currentRowChanged, this, &PlacesPanel::UpdateButtons);
    connect(add_, &QPushButton::clicked, this, &PlacesPanel::AddPlace);
    connect(remove_, &QPushButton::clicked, this, &PlacesPanel::RemovePlace);
    Fill();
}

QList<QWidget*> PlacesPanel::TabOrder() const {
    return {list_, add_, remove_};
}

bool PlacesPanel::TakesReturn() const {
    return list_->hasFocus();
}

void PlacesPanel::Fill() {
    list_->clear();
    const auto add = [this](const FolderPlace& place, QStyle::StandardPixmap icon) {
        auto* item =
            new QListWidgetItem(style()->standardIcon(icon, nullptr, this), place.name, list_);
        item->setData(kPath, place.path);
        item->setData(kOwn, place.own);
        item->setToolTip(place.path);
    };
    add({kAllPlaces, {}, false}, QStyle::SP_DriveNetIcon);
    for (const FolderPlace& place : places_.List()) add(place, QStyle::SP_DirIcon);
    UpdateButtons();
}

void PlacesPanel::AddPlace() {
    const QString path = QFileDialog::getExistingDirectory(
        this, "Add Folder Connection", folder_.isEmpty() ? QDir::homePath() : folder_);
    if (path.isEmpty()) return;
    places_.Add(path);
    Fill();
    listeners_.changed();
    listeners_.go(path);
}

void PlacesPanel::RemovePlace() {
    const QListWidgetItem* item = list_->currentItem();
    if (item == nullptr) return;
    places_.Remove(item->data(kPath).toString());
    Fill();
    listeners_.changed();
}

void PlacesPanel::UpdateButtons() {
    const QListWidgetItem* place = list_->currentItem();
    remove_->setEnabled(place != nullptr && place->data(kOwn).toBool());
}

}  // namespace desk
