#pragma once

#include <QGroupBox>

#include "app/document/PageFurniture.h"
#include "app/window/LengthBox.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;

namespace app {

/// The controls of a running head or a sheet number.
class LabelPanel : public QGroupBox {
    Q_OBJECT

public:
    /// The names of the controls begin with the tag. The family is that of the index.
    LabelPanel(host::IHost& host, const char* tag, Label label, const std::string& family,
               QWidget* parent);

    Label Value() const;
    /// Whether the distance is a length; marks it if not.
    bool CheckDistance();
    QWidget* TextField() const;

Q_SIGNALS:
    void Changed();

private:
    void FillPlaces();
    void ChooseFont();
    void FollowIndex(bool follows);
    void ShowFont();

    host::IHost& host_;
    Label label_;
    std::string family_;
    QLineEdit* text_ = nullptr;  ///< Null for a number.
    QComboBox* place_;
    LengthBox* distance_;
    QPushButton* font_;
    QCheckBox* follows_;
};

}  // namespace app
