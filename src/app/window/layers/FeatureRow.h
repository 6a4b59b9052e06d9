#pragma once

#include <QWidget>

#include "app/tables/TableOptions.h"

class QLineEdit;
class QPlainTextEdit;

namespace app {

class Disclosure;
class LayerField;

/// A layer of features with the field or text that names them, and behind "More" which of them are
/// taken and what is the same for all.
class FeatureRow : public QWidget {
    Q_OBJECT

public:
    FeatureRow(const QString& name, QWidget* parent);

    LayerField& Layer() const { return *layer_; }
    /// Throws UsageError for a constant that is no FIELD=VALUE.
    FeatureOptions Options() const;

Q_SIGNALS:
    void Changed();

private:
    void TakeChange();

    LayerField* layer_;
    Disclosure* more_;
    QLineEdit* where_;
    QPlainTextEdit* constants_;
};

}  // namespace app
