#include "app/window/GridControls.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QSpinBox>
#include <QStyle>

namespace app {

namespace {

constexpr int kMostSquares = 1000;  // Of a row or a column.

}  // namespace

QSpinBox* Count(const char* name, int value, QWidget* parent) {
    auto* box = new QSpinBox(parent);
    box->setObjectName(name);
    box->setRange(0, kMostSquares);
    box->setSpecialValueText("none");
    box->setValue(value);
    return box;
}

QLineEdit* LabelsLine(const char* name, QWidget* parent) {
    auto* line = new QLineEdit(parent);
    line->setObjectName(name);
    return line;
}

QString DefaultLabels(int count, bool areLetters) {
    constexpr int kLetters = 26;
    if (count == 0) return {};
    if (areLetters && count <= kLetters) return QString("A..%1").arg(QChar('A' + count - 1));
    return QString("1..%1").arg(count);
}

void AddSide(QFormLayout& form, const char* text, QSpinBox* count, QLineEdit* labels) {
    auto* name = new QLabel(text, count->parentWidget());
    name->setBuddy(count);
    auto* row = new QHBoxLayout;
    row->addWidget(count);
    row->addWidget(new QLabel("labels", count->parentWidget()));
    row->addWidget(labels, 1);
    form.addRow(name, row);
}

QScrollArea* Scrolled(QWidget* controls, QWidget* parent) {
    auto* area = new QScrollArea(parent);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(controls);
    // The page behind shows through.
    area->viewport()->setAutoFillBackground(false);
    controls->setAutoFillBackground(false);
    const int bar = area->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    area->setMinimumWidth(controls->sizeHint().width() + bar);
    return area;
}

}  // namespace app
