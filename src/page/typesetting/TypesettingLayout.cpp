#include "page/typesetting/TypesettingLayout.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <array>

namespace gazetteer {
namespace {

using Forms = std::array<QFormLayout*, kGroupTitles.size()>;

// Two columns of boxes of about the same height.
constexpr std::array<std::pair<int, int>, kGroupTitles.size()> kPlaces = {
    {{0, 0}, {0, 1}, {1, 1}, {1, 0}}};

void AddRow(QFormLayout& form, const KeyControl& control) {
    QWidget& field = control.Widget();
    if (qobject_cast<QCheckBox*>(&field) != nullptr) return form.addRow(&field);
    form.addRow(control.Text().label, &field);
    form.labelForField(&field)->setToolTip(control.Text().toolTip);
}

}  // namespace

QWidget* NewSettingBoxes(std::span<const KeyControl> controls, QWidget* parent) {
    auto* boxes = new QWidget(parent);
    auto* grid = new QGridLayout(boxes);
    grid->setContentsMargins({});
    Forms forms{};
    for (std::size_t i = 0; i < kGroupTitles.size(); ++i) {
        auto* box = new QGroupBox(kGroupTitles[i], boxes);
        forms[i] = new QFormLayout(box);
        forms[i]->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
        grid->addWidget(box, kPlaces[i].first, kPlaces[i].second);
    }
    for (int column : {0, 1}) grid->setColumnStretch(column, 1);
    for (const KeyControl& control : controls)
        AddRow(*forms.at(static_cast<std::size_t>(control.Text().group)), control);
    return boxes;
}

}  // namespace gazetteer
