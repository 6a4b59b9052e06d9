#pragma once

#include <QObject>
#include <functional>

#include "app/window/WindowSession.h"

class QWidget;

namespace app {

/// Opens, creates and saves documents, with the dialogs for that, and keeps the list of recent ones
/// in the user's settings.
class Documents : public QObject {
    Q_OBJECT

public:
    Documents(WindowSession& session, QWidget& window);

    /// Returns whether the current document may be closed; offers to save it if it is modified.
    bool MayLeave();

    void Open();
    void Open(const QString& path);
    /// Opens a recent document, or removes it from the list if the file no longer exists.
    void OpenRecent(const QString& path);
    /// Opens the dialog for a new document, with a listing table if one is given.
    void New(const QString& table = {});
    bool Save();
    bool SaveAs();

    /// The document's name for titles.
    QString Name() const;
    /// Paths of recent documents, newest first.
    static QStringList Recent();
    void ClearRecent();

Q_SIGNALS:
    /// Another document was opened or created.
    void Replaced();
    /// The user cancelled the run of a document being opened; the one before is still there.
    void Cancelled();
    void Saved();
    void RecentChanged();

private:
    bool SaveWith(const QString& path, const std::function<void()>& save);
    void SetRecent(const QStringList& paths);
    void AddRecent(const QString& path);
    QString StartFolder() const;

    WindowSession& session_;
    QWidget& window_;
};

}  // namespace app
