#pragma once

#include <QObject>
#include <functional>

#include "app/window/WindowSession.h"

class QWidget;

namespace app {

/// Opening, making and saving documents, with what has to be asked and told.
class Documents : public QObject {
    Q_OBJECT

public:
    Documents(WindowSession& session, QWidget& window);

    /// The document on show may be left: it is saved, or is not to be. Asks where it is modified.
    bool MayLeave();

    void Open();
    void Open(const QString& path);
    /// Opens a document from the list of recent ones, which forgets it if it is gone.
    void OpenRecent(const QString& path);
    /// Asks for a new document; a listing table may be given.
    void New(const QString& table = {});
    bool Save();
    bool SaveAs();

    static bool IsTable(const QString& path);
    /// The name of the document as titles show it.
    QString Name() const;

Q_SIGNALS:
    /// Another document is on show.
    void Replaced();
    void Saved();
    void RecentChanged();

private:
    bool SaveWith(const QString& path, const std::function<void()>& save);
    void Warn(const QString& title, const QString& sentence);
    QString StartFolder() const;

    WindowSession& session_;
    QWidget& window_;
};

}  // namespace app
