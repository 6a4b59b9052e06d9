#pragma once

#include <QObject>

#include "app/tables/TableOptions.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QSpinBox;
class QWidget;

namespace app {

class Disclosure;
class LayerField;

/// The controls for the squares of the sheets: a grid with its labels, or a layer of squares; and
/// which squares of a sheet are listed.
class SquareChoices : public QObject {
    Q_OBJECT

public:
    explicit SquareChoices(QWidget* parent);

    void AddTo(QFormLayout& form) const;
    /// Adds the less common ones.
    void AddMoreTo(QFormLayout& form, Disclosure& more) const;
    /// How many of the latter are set.
    int MoreSet() const;
    /// False if a layer of squares is named that cannot be used.
    bool IsUsable() const;
    const LayerField& OwnSquares() const { return *own_; }
    /// Sets what is chosen. Throws UsageError for a grid without rows or columns.
    void FillIn(LocateOptions& options) const;

Q_SIGNALS:
    void Changed();

private:
    bool HasOwn() const;
    bool HasGrid() const;
    void FillInGrid(LocateOptions& options) const;
    std::string LeftOut() const;
    void TakeChange();

    QSpinBox* rows_;
    QSpinBox* columns_;
    QLineEdit* rowLabels_;
    QLineEdit* columnLabels_;
    QCheckBox* leaveOut_;
    QComboBox* squares_;
    QComboBox* origin_;
    LayerField* own_;
};

}  // namespace app
