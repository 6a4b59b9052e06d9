#include "typesetting/TypesettingLayout.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <array>

namespace gazetteer {
namespace {

using Forms = std::array<QFormLayout*, kGroupTitles.size()>;

// Two columns of boxes of about the same height.
constexpr std::array<std::array<SettingGroup, 2>, 2> kColumns = {
    {{SettingGroup::Headings, SettingGroup::Page}, {SettingGroup::Lines, SettingGroup::Leaders}}};

void AddRow(QFormLayout& form, const KeyControl& control) {
    QWidget& field = control.Widget();
    if (qobject_cast<QCheckBox*>(&field) != nullptr) return form.addRow(&field);
    form.addRow(control.Text().label, &field);
    form.labelForField(&field)->setToolTip(control.Text().toolTip);
}

}  // namespace

QWidget* NewSettingBoxes(std::span<const KeyControl> controls, QWidget* parent) {
    auto* boxes = new QWidget(parent);
    auto* columns = new QHBoxLayout(boxes);
    columns->setContentsMargins({});
    Forms forms{};
    for (const auto& groups : kColumns) {
        auto* column = new QVBoxLayout;
        columns->addLayout(column, 1);
        for (const SettingGroup group : groups) {
            const auto index = static_cast<std::size_t>(group);
            auto* box = new QGroupBox(kGroupTitles.at(index), boxes);
            forms.at(index) = new QFormLayout(box);
            forms.at(index)->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
            // The last boxes end at the same height.
            column->addWidget(box, group == groups.back() ? 1 : 0);
        }
    }
    for (const KeyControl& control : controls)
        AddRow(*forms.at(static_cast<std::size_t>(control.Text().group)), control);
    return boxes;
}

}  // namespace gazetteer
