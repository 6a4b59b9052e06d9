#pragma once

#include <QTreeWidget>

#include "desk/window/PlacesPanel.h"

class QFileInfo;

namespace desk {

/// Lists the folders and tables of a folder, the layers of a file, or the folder connections.
class FolderList : public QTreeWidget {
public:
    /// A container is a file with layers, which opens like a folder.
    enum class Kind { None, Folder, Connection, Container, Table };

    explicit FolderList(QWidget* parent);

    /// Returns false and changes nothing if the folder cannot be read.
    bool ShowFolder(const QString& folder);
    /// Throws host::Failure and changes nothing if the file cannot be read.
    void ShowLayers(const QString& container);
    void ShowPlaces(const QList<FolderPlace>& places);

    static Kind KindOf(const QTreeWidgetItem* item);
    static QString PathOf(const QTreeWidgetItem* item);
    /// Returns the paths of the selected tables, in list order.
    QStringList SelectedTables() const;
    /// Returns the selected folder, connection or container if exactly one is selected, else null.
    const QTreeWidgetItem* SelectedFolder() const;
    /// Returns the path of a table by name, with or without ending; empty if there is none.
    QString TableNamed(const QString& name) const;
    void Select(const QString& path);

protected:
    /// Return opens the current item without also pressing the dialog's default button.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void AddFile(const QFileInfo& info);
    QTreeWidgetItem* Add(Kind kind, const QString& name, const QString& path,
                         QStyle::StandardPixmap icon);
    void Begin(const QStringList& headers);
};

}  // namespace desk
