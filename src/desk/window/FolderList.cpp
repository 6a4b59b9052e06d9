#include "desk/window/FolderList.h"

#include <QCollator>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLocale>
#include <QStyle>
#include <algorithm>

#include "desk/tables/TablePath.h"
#include "desk/tables/TableWorkspace.h"
#include "desk/window/WidgetText.h"

namespace desk {

namespace {

constexpr int kKindRole = Qt::UserRole;
constexpr int kPathRole = Qt::UserRole + 1;

constexpr int kNameColumn = 0;
constexpr int kSizeColumn = 1;
constexpr int kDateColumn = 2;

/// Without those that a file of another name stands for: the dBase table of a shapefile is listed.
QStringList NamePatterns() {
    QStringList patterns;
    for (const std::string& ending : TableEndings())
        if (ending != ".shp") patterns << "*" + ToQt(ending);
    return patterns;
}

QFileInfoList InOrder(QFileInfoList files) {
    QCollator collator;
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(files.begin(), files.end(), [&](const QFileInfo& one, const QFileInfo& other) {
        return collator.compare(one.fileName(), other.fileName()) < 0;
    });
    return files;
}

}  // namespace

FolderList::FolderList(QWidget* parent) : QTreeWidget(parent) {
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setTabKeyNavigation(false);
    setAccessibleName("Folders and tables");
    setColumnCount(3);
}

void FolderList::Begin(const QStringList& headers) {
    clear();
    setHeaderLabels(headers);
    for (int column = 0; column < 3; ++column) {
        setColumnHidden(column, column >= headers.size());
        header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    }
    headerItem()->setTextAlignment(kSizeColumn, Qt::AlignRight | Qt::AlignVCenter);
}

QTreeWidgetItem* FolderList::Add(Kind kind, const QString& name, const QString& path,
                                 QStyle::StandardPixmap icon) {
    auto* item = new QTreeWidgetItem(this, {name});
    item->setIcon(kNameColumn, style()->standardIcon(icon, nullptr, this));
    item->setData(kNameColumn, kKindRole, static_cast<int>(kind));
    item->setData(kNameColumn, kPathRole, path);
    item->setToolTip(kNameColumn, path);
    return item;
}

bool FolderList::ShowFolder(const QString& folder) {
    const QDir dir(folder);
    if (!dir.exists() || !dir.isReadable()) return false;
    Begin({"Name", "Size", "Changed"});
    for (const QFileInfo& info : InOrder(dir.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot)))
        if (IsContainer(FromQt(info.absoluteFilePath())))
            AddFile(info);
        else
            Add(Kind::Folder, info.fileName(), info.absoluteFilePath(), QStyle::SP_DirIcon);
    for (const QFileInfo& info : InOrder(dir.entryInfoList(NamePatterns(), QDir::Files)))
        AddFile(info);
    return true;
}

void FolderList::AddFile(const QFileInfo& info) {
    const bool isContainer = IsContainer(FromQt(info.absoluteFilePath()));
    auto* item =
        Add(isContainer ? Kind::Container : Kind::Table, info.fileName(), info.absoluteFilePath(),
            isContainer ? QStyle::SP_FileDialogDetailedView : QStyle::SP_FileIcon);
    if (info.isFile()) item->setText(kSizeColumn, locale().formattedDataSize(info.size(), 1));
    item->setTextAlignment(kSizeColumn, Qt::AlignRight | Qt::AlignVCenter);
    item->setText(kDateColumn, locale().toString(info.lastModified().date(), QLocale::ShortFormat));
}

void FolderList::ShowLayers(const QString& container) {
    const auto layers = TableWorkspace(FromQt(container)).Datasets(host::kDatasetTypeTable);
    Begin({"Layer"});
    while (const auto layer = layers->Next())
        Add(Kind::Table, ToQt(layer->Name()), container + '/' + ToQt(layer->Name()),
            QStyle::SP_FileIcon);
}

void FolderList::ShowPlaces(const QList<FolderPlace>& places) {
    Begin({"Folder Connection"});
    for (const FolderPlace& place : places)
        Add(Kind::Connection,
            place.name == place.path ? place.path : place.name + "  (" + place.path + ")",
            place.path, QStyle::SP_DriveHDIcon);
}

FolderList::Kind FolderList::KindOf(const QTreeWidgetItem* item) {
    return item == nullptr ? Kind::None
                           : static_cast<Kind>(item->data(kNameColumn, kKindRole).toInt());
}

QString FolderList::PathOf(const QTreeWidgetItem* item) {
    return item == nullptr ? QString() : item->data(kNameColumn, kPathRole).toString();
}

QStringList FolderList::SelectedTables() const {
    QStringList paths;
    for (int row = 0; row < topLevelItemCount(); ++row)
        if (topLevelItem(row)->isSelected() && KindOf(topLevelItem(row)) == Kind::Table)
            paths << PathOf(topLevelItem(row));
    return paths;
}

const QTreeWidgetItem* FolderList::SelectedFolder() const {
    const auto selected = selectedItems();
    if (selected.size() != 1 || KindOf(selected.front()) == Kind::Table) return nullptr;
    return selected.front();
}

QString FolderList::TableNamed(const QString& name) const {
    if (name.isEmpty()) return {};
    QString found;
    for (int row = 0; row < topLevelItemCount(); ++row) {
        const QTreeWidgetItem* item = topLevelItem(row);
        if (KindOf(item) != Kind::Table) continue;
        const QFileInfo info(PathOf(item));
        if (info.fileName() == name) return info.filePath();
        if (info.completeBaseName() == name && found.isEmpty()) found = info.filePath();
    }
    return found;
}

void FolderList::Select(const QString& path) {
    for (int row = 0; row < topLevelItemCount(); ++row)
        if (PathOf(topLevelItem(row)) == path) setCurrentItem(topLevelItem(row));
}

void FolderList::keyPressEvent(QKeyEvent* event) {
    QTreeWidget::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) event->accept();
}

}  // namespace desk
