#pragma once

#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "app/tables/LocatedTable.h"
#include "app/window/WindowSession.h"

class QListView;
class QPlainTextEdit;
class QPushButton;
class QStringListModel;

namespace app {

class LocateChoices;
class SheetsMap;

/// What the page has written.
struct LocatedFiles {
    std::string table;  ///< Empty if the user has cancelled.
    std::string book;   ///< Map book to which the table's numbers belong; empty: none.
    std::vector<std::string> notices;  ///< What was left out, one sentence each.
};

/// The page of the dialog for a new document on which listings are made from map layers: the
/// choices at the left, what was found at the right, as a list and on a small map.
class LocatePage : public QWidget {
    Q_OBJECT

public:
    LocatePage(WindowSession& session, QWidget* parent);

    /// Whether layers and fields are chosen, and where the table goes.
    bool IsUsable() const;
    /// Whether a map book is written beside the table.
    bool WritesBook() const;
    /// Looks the features up again if a choice has changed, and writes the table and the map book.
    /// Throws what the work throws.
    LocatedFiles Write();

Q_SIGNALS:
    void Changed();

private:
    QWidget* Found();
    void TakeChange();
    void LookUp();
    bool Locate();
    bool MayReplace(const QString& path);
    std::vector<std::string> Report() const;
    void ShowFound();
    void MarkListing(int row);

    WindowSession& session_;
    LocateChoices* choices_;
    QPushButton* lookUp_;
    QPlainTextEdit* summary_;
    QListView* listings_;
    QStringListModel* names_;
    SheetsMap* map_;
    std::unique_ptr<LocatedTable> located_;  ///< Null until looked up, and after a change.
};

}  // namespace app
