#pragma once

#include <QDockWidget>

#include "app/document/FindingList.h"

class QAction;
class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

namespace app {

/// The list of what would be wrong in print, by kind.
class FindingsDock : public QDockWidget {
    Q_OBJECT

public:
    explicit FindingsDock(QWidget* parent);

    /// Lists the reasons why gazetteers cannot be drawn, and the findings. Returns false and keeps
    /// the current row if both are the same as before.
    bool SetFindings(const FindingList& reasons, const FindingList& findings);
    /// Shows the dock and puts the focus on the list.
    void FocusList();
    /// The finding of the current row; null if it has none.
    const Finding* Current() const;

Q_SIGNALS:
    /// The user has gone to a finding.
    void Chosen();
    /// The user has pressed Enter on a finding or double clicked it.
    void Opened();

private:
    void AddKinds(const FindingList& list);
    QTreeWidgetItem* AddRow(QTreeWidgetItem& parent, const QString& text, const Finding* finding);
    void AddAction(const char* text, const QList<QKeySequence>& keys, void (FindingsDock::*act)());
    void Open();
    void Copy();

    QTreeWidget* list_;
    QLabel* nothing_;
    FindingList reasons_;
    FindingList findings_;
    std::vector<const Finding*> rows_;  ///< By the number of each row.
};

}  // namespace app
