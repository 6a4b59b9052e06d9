#pragma once

#include <QList>
#include <QString>
#include <QWidget>
#include <functional>

class QListWidget;
class QPushButton;

namespace desk {

inline constexpr char kAllPlaces[] = "Folder Connections";

struct FolderPlace {
    QString name;
    QString path;
    bool own = false;  ///< Added by the user, who may remove it.
};

/// The folder connections: the document's folder, the user's standard folders, mounted volumes, and
/// those that the user added, which are stored in the program's settings.
class FolderPlaces {
public:
    explicit FolderPlaces(QString documentFolder);

    /// Returns each connection once. Only those added by the user may be missing on disk.
    QList<FolderPlace> List() const;
    void Add(const QString& path) const;
    void Remove(const QString& path) const;

private:
    QString documentFolder_;
};

/// Shows the folder connections, with buttons to add one and to remove an added one.
class PlacesPanel : public QWidget {
public:
    struct Listeners {
        std::function<void(const QString& path)> go;  ///< Empty path: the list of all connections.
        std::function<void()> changed;                ///< A connection was added or removed.
    };

    PlacesPanel(const QString& documentFolder, Listeners listeners, QWidget* parent);

    QList<FolderPlace> Places() const { return places_.List(); }
    /// Sets the initial folder of the dialog that adds a connection.
    void SetFolder(const QString& folder) { folder_ = folder; }

    /// Returns its widgets in tab order.
    QList<QWidget*> TabOrder() const;
    /// Returns true if the list has the focus and handles Return itself.
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
