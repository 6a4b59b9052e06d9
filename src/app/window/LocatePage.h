#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "app/tables/LocatedTable.h"
#include "app/window/WindowSession.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QListView;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;
class QStringListModel;
class QVBoxLayout;

namespace app {

class LayerField;
class PathField;
class SheetsMap;

/// The page of the dialog for a new document on which listings are made from map layers: features,
/// sheets and their grid at the left, what was found at the right, as a list and on a small map.
class LocatePage : public QWidget {
    Q_OBJECT

public:
    LocatePage(WindowSession& session, QWidget* parent);

    /// Whether layers and fields are chosen, and where the table goes.
    bool IsUsable() const;
    /// Looks the features up again if a choice has changed, and writes the table. Returns its path;
    /// empty if the user cancels. Throws what the work throws.
    std::string MakeTable();

Q_SIGNALS:
    void Changed();

private:
    QWidget* Choices();
    void MakeControls(QWidget* choices);
    void LayOut(QWidget* choices);
    void ConnectControls();
    QWidget* Found();
    void AddFeatures();
    void TakeChange();
    void LookUp();
    bool Locate();
    void ShowFound();
    void MarkListing(int row);
    LocateOptions Options() const;
    QString ProposedTable() const;

    WindowSession& session_;
    QVBoxLayout* featureRows_;
    std::vector<LayerField*> features_;
    LayerField* sheets_;
    QSpinBox* rows_;
    QSpinBox* columns_;
    QLineEdit* rowLabels_;
    QLineEdit* columnLabels_;
    QCheckBox* leaveOut_;
    QComboBox* squares_;
    QComboBox* apart_;
    PathField* table_;
    QPushButton* lookUp_;
    QPlainTextEdit* summary_;
    QListView* listings_;
    QStringListModel* names_;
    SheetsMap* map_;
    std::unique_ptr<LocatedTable> located_;  ///< Null until looked up, and after a change.
    bool tableChosen_ = false;
};

}  // namespace app
