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

/// Something that was picked: a table, or the folder for a typed name.
struct PickedObject {
    std::string fullName;  ///< Path.
    std::string category;  ///< "dBASE Table", "Folder" or "Folder Connection".
};

/// The window of the object dialog: places, the folders and tables of one folder, what the selected
/// table holds, and a name.
class TableChooser : public QDialog {
public:
    TableChooser(const QString& startFolder, bool allowMultiSelect, QWidget* parent);

    const std::vector<PickedObject>& Picked() const { return picked_; }
    /// The name typed, or the file name of the table picked.
    QString Name() const { return pickedName_; }

private:
    void LayOut();
    QWidget* AddressRow();
    QWidget* NameRow();
    void Wire();

    /// Shows a folder, or the folder connections for an empty path.
    void Enter(const QString& folder);
    void GoUp();
    void Activate(const QTreeWidgetItem* item);
    void GoToAddress();
    void TakeSelection();
    void ShowPreview();
    void UpdateButtons();

    void TakeName();
    /// Goes where a typed path leads. False if there is no such folder.
    bool FollowPath(const QString& path);
    void TakeTables(const QStringList& paths);
    void TakeTypedName(const QString& name);
    void Tell(const QString& text);

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
