#pragma once

#include <QTreeWidget>

#include "desk/window/PlacesPanel.h"

namespace desk {

/// What can be picked in a folder: its folders and its dBase tables; or the folder connections.
class FolderList : public QTreeWidget {
public:
    enum class Kind { None, Folder, Connection, Table };

    explicit FolderList(QWidget* parent);

    /// False for a folder that cannot be read; the list then stays as it is.
    bool ShowFolder(const QString& folder);
    void ShowPlaces(const QList<FolderPlace>& places);

    static Kind KindOf(const QTreeWidgetItem* item);
    static QString PathOf(const QTreeWidgetItem* item);
    /// Paths of the selected tables, as they stand in the list.
    QStringList SelectedTables() const;
    /// The one folder or connection that is selected, or null.
    const QTreeWidgetItem* SelectedFolder() const;
    /// Path of the table with this name, which may lack its ending; or empty.
    QString TableNamed(const QString& name) const;
    void Select(const QString& path);

protected:
    /// Return opens what is current and does not press the dialog's default button as well.
    void keyPressEvent(QKeyEvent* event) override;

private:
    QTreeWidgetItem* Add(Kind kind, const QString& name, const QString& path,
                         QStyle::StandardPixmap icon);
    void Begin(const QStringList& headers);
};

}  // namespace desk
