#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <string>

class QComboBox;
class QLabel;

namespace app {

class PathField;

/// A layer of map data and one of its fields: a path, the layers of a source that has several, and
/// the fields of the layer. What is wrong stands below.
class LayerField : public QWidget {
    Q_OBJECT

public:
    /// The fields named here are preferred, the first one most; the text asks for the field.
    /// A layer whose name has the given part is chosen first.
    LayerField(const QString& name, const QString& fieldText, QStringList preferred,
               QString layerPart, QWidget* parent);

    bool IsEmpty() const;
    bool IsUsable() const { return usable_; }
    QString Source() const;
    /// "SOURCE" or "SOURCE/LAYER".
    QString Path() const;
    QString Field() const;
    QStringList Fields() const;
    void SetPath(const QString& path);

Q_SIGNALS:
    void Changed();

private:
    void TakePath();
    void ReadSource();
    void ReadFields();
    void ShowFault(const QString& fault);

    PathField* path_;
    QComboBox* layer_;
    QLabel* fieldText_;
    QComboBox* field_;
    QLabel* fault_;
    QStringList preferred_;
    QString layerPart_;
    bool usable_ = false;
    QTimer readSoon_;
};

}  // namespace app
