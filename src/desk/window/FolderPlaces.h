#pragma once

#include <QList>
#include <QString>

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

}  // namespace desk
