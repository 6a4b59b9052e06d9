#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "app/tables/TableOptions.h"

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QVBoxLayout;

namespace app {

class Disclosure;
class FeatureRow;
class LayerField;
class PathField;
class SquareChoices;

/// The choices from which listings are made of map layers: features, sheets, their squares, what is
/// one listing, and the files to write. The button "More" shows the less common ones.
class LocateChoices : public QWidget {
    Q_OBJECT

public:
    explicit LocateChoices(QWidget* parent);

    /// Whether each layer that is named can be read, and there are features and sheets.
    bool CanLocate() const;
    /// Throws UsageError for choices that do not fit each other.
    LocateOptions Options() const;
    /// The table to write; empty: none is named.
    QString Table() const;
    /// The map book to write; empty: none.
    QString Book() const;
    /// Files of all layers.
    std::vector<std::string> Files() const;

Q_SIGNALS:
    /// What is located changes.
    void Changed();
    /// Only a file to write changes.
    void OutputChanged();

private:
    void LayOut();
    void Connect();
    void AddFeatures();
    void TakeChange();
    void ListFields();
    QString ProposedTable() const;

    QVBoxLayout* featureRows_;
    std::vector<FeatureRow*> features_;
    LayerField* sheets_;
    SquareChoices* squares_;
    QComboBox* apart_;
    PathField* table_;
    Disclosure* more_;
    QDoubleSpinBox* distance_;
    QCheckBox* initial_;
    PathField* book_;
    bool tableChosen_ = false;
};

}  // namespace app
