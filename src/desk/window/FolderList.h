#pragma once

#include <QTreeWidget>

#include "desk/window/PlacesPanel.h"

namespace desk {

/// Lists the folders and dBase tables of a folder, or the folder connections.
class FolderList : public QTreeWidget {
public:
    enum class Kind { None, Folder, Connection, Table };

    explicit FolderList(QWidget* parent);

    /// Returns false and changes nothing if the folder cannot be read.
    bool ShowFolder(const QString& folder);
    void ShowPlaces(const QList<FolderPlace>& places);

    static Kind KindOf(const QTreeWidgetItem* item);
    static QString PathOf(const QTreeWidgetItem* item);
    /// Returns the paths of the selected tables, in list order.
    QStringList SelectedTables() const;
    /// Returns the selected folder or connection if exactly one is selected, else null.
    const QTreeWidgetItem* SelectedFolder() const;
    /// Returns the path of a table by name, with or without ending; empty if there is none.
    QString TableNamed(const QString& name) const;
    void Select(const QString& path);

protected:
    /// Return opens the current item without also pressing the dialog's default button.
    void keyPressEvent(QKeyEvent* event) override;

private:
    QTreeWidgetItem* Add(Kind kind, const QString& name, const QString& path,
                         QStyle::StandardPixmap icon);
    void Begin(const QStringList& headers);
};

}  // namespace desk
