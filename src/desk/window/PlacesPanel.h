#pragma once

#include <QList>
#include <QString>
#include <QWidget>
#include <functional>

class QListWidget;
class QPushButton;

namespace desk {

/// What the list of all folder connections is called.
inline constexpr char kAllPlaces[] = "Folder Connections";

/// A folder that is quick to reach.
struct FolderPlace {
    QString name;
    QString path;
    bool own = false;  ///< Added by the user, who may take it away again.
};

/// The folder connections: the document's folder, the user's usual folders, mounted volumes, and
/// what the user added, which is remembered in the settings of the program.
class FolderPlaces {
public:
    explicit FolderPlaces(QString documentFolder);

    /// Each once. Only those that the user added may be missing on disk.
    QList<FolderPlace> List() const;
    void Add(const QString& path) const;
    void Remove(const QString& path) const;

private:
    QString documentFolder_;
};

/// The folder connections as a list beside the folder on show, with buttons to add one and to take
/// one's own away again.
class PlacesPanel : public QWidget {
public:
    struct Listeners {
        std::function<void(const QString& path)> go;  ///< Empty: to the list of all of them.
        std::function<void()> changed;                ///< One was added or removed.
    };

    PlacesPanel(const QString& documentFolder, Listeners listeners, QWidget* parent);

    QList<FolderPlace> Places() const { return places_.List(); }
    /// Where the search for a folder to add begins.
    void SetFolder(const QString& folder) { folder_ = folder; }

    /// Its parts in the order of the Tab key.
    QList<QWidget*> TabOrder() const;
    /// The list takes the Return key to go somewhere.
    bool TakesReturn() const;

private:
    void Fill();
    void AddPlace();
    void RemovePlace();
    void UpdateButtons();

    FolderPlaces places_;
    Listeners listeners_;
    QString folder_;
    QListWidget* list_;
    QPushButton* add_;
    QPushButton* remove_;
};

}  // namespace desk
