#pragma once

#include <QDialog>
#include <QTimer>
#include <string>
#include <vector>

class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QToolButton;
class QTreeWidgetItem;

namespace desk {

class FolderList;
class PlacesPanel;
class TablePreview;

/// The selected table, or the folder of a typed name.
struct PickedObject {
    std::string fullName;
    std::string category;  ///< "dBASE Table", "Table", "Folder" or "Folder Connection".
};

/// The dialog of ObjectDialog: folder connections, the contents of a folder or a file, a preview of
/// the selected table, and a name.
class TableChooser : public QDialog {
public:
    TableChooser(const QString& startFolder, bool allowMultiSelect, QWidget* parent);

    const std::vector<PickedObject>& Picked() const { return picked_; }
    /// Returns the typed name, or the file name of the selected table.
    QString Name() const { return pickedName_; }

private:
    void LayOut();
    QWidget* AddressRow();
    QWidget* NameRow();
    void ConnectSignals();

    /// Shows a folder, or the folder connections for an empty path.
    void Enter(const QString& folder);
    /// Fills the list. Returns false, and says why, if that cannot be.
    bool ShowContents(const QString& folder);
    void GoUp();
    void Activate(const QTreeWidgetItem* item);
    void GoToAddress();
    void ShowSelection();
    void ShowPreview();
    void UpdateButtons();

    void AcceptName();
    /// Opens a typed path. Returns false if it is no folder.
    bool FollowPath(const QString& path);
    void AcceptTables(const QStringList& paths);
    void AcceptTypedName(const QString& name);
    void ShowNote(const QString& text);

    QString folder_;
    QTimer previewTimer_;
    std::vector<PickedObject> picked_;
    QString pickedName_;
    QLineEdit* address_;
    QToolButton* up_;
    PlacesPanel* places_;
    FolderList* list_;
    TablePreview* preview_;
    QLineEdit* name_;
    QLabel* note_;
    QDialogButtonBox* buttons_;
};

}  // namespace desk
