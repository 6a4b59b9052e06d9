#pragma once

#include <QTimer>
#include <QWidget>
#include <string>
#include <vector>

class QComboBox;
class QHBoxLayout;
class QLabel;

namespace app {

class PathField;

/// A field of a layer that is asked for.
struct AskedField {
    QString text;           ///< Label, such as "Name:".
    QStringList preferred;  ///< Names of fields, the first one most.
    bool takesExpressions = false;
};

/// A layer of map data and fields of it: a path, the layers of a source that has several, and the
/// fields of the layer. What is wrong stands below.
class LayerField : public QWidget {
    Q_OBJECT

public:
    /// A layer whose name has the given part is chosen first.
    LayerField(const QString& name, const std::vector<AskedField>& asked, QString layerPart,
               QWidget* parent);

    bool IsEmpty() const;
    /// Whether there is such a layer, and each field is given.
    bool IsUsable() const;
    QString Source() const;
    /// The source's file; empty for a connection.
    std::string File() const;
    /// "SOURCE" or "SOURCE/LAYER".
    QString Path() const;
    /// What is chosen for a field that is asked for.
    QString Field(std::size_t asked = 0) const;
    /// All fields of the layer.
    const QStringList& Fields() const { return fields_; }
    /// Adds a widget that is shown beside the fields.
    void AddBeside(QWidget* widget);

Q_SIGNALS:
    void Changed();

private:
    struct Choice {
        QLabel* text;
        QComboBox* box;
        QStringList preferred;
    };

    void AddChoice(const AskedField& asked, const QString& name);
    void TakePath();
    void ReadSource();
    void ReadFields();
    void FillIn(const Choice& choice);
    void ShowFault(const QString& fault);

    PathField* path_;
    QComboBox* layer_;
    QHBoxLayout* row_;
    std::vector<Choice> choices_;
    std::vector<QWidget*> beside_;
    QLabel* fault_;
    QStringList fields_;
    QString layerPart_;
    bool usable_ = false;
    QTimer readSoon_;
};

}  // namespace app
