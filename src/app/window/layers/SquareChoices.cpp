#include "app/window/layers/SquareChoices.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>

#include "app/document/Errors.h"
#include "app/tables/Labels.h"
#include "app/window/layers/Disclosure.h"
#include "app/window/layers/LayerField.h"
#include "app/window/layers/Rows.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

constexpr int kMostSquares = 1000;  // Of a row or a column.

QSpinBox* Count(const char* name, QWidget* parent) {
    auto* box = new QSpinBox(parent);
    box->setObjectName(name);
    box->setRange(0, kMostSquares);
    box->setSpecialValueText("none");
    return box;
}

QLineEdit* LabelsLine(const char* name, const char* accessibleName, QWidget* parent) {
    auto* line = new QLineEdit(parent);
    line->setObjectName(name);
    line->setAccessibleName(accessibleName);
    return line;
}

// Adds a row with a number of squares and their labels.
void AddSide(QFormLayout& form, const char* text, QSpinBox* count, QLineEdit* labels) {
    auto* name = new QLabel(text, count->parentWidget());
    name->setBuddy(count);
    auto* row = new QHBoxLayout;
    row->addWidget(count);
    row->addWidget(new QLabel("labels", count->parentWidget()));
    row->addWidget(labels, 1);
    form.addRow(name, row);
}

std::string ChosenData(const QComboBox& box) {
    return desk::FromQt(box.currentData().toString());
}

}  // namespace

SquareChoices::SquareChoices(QWidget* parent)
    : QObject(parent),
      rows_(Count("gridRows", parent)),
      columns_(Count("gridColumns", parent)),
      rowLabels_(LabelsLine("rowLabels", "Labels of the grid rows", parent)),
      columnLabels_(LabelsLine("columnLabels", "Labels of the grid columns", parent)),
      leaveOut_(new QCheckBox("Leave out the letters &I and O", parent)),
      squares_(ChoiceOf(
          "squares",
          {{"The one with the most of it", "longest"}, {"All", "all"}, {"The first", "first"}},
          parent)),
      origin_(ChoiceOf("origin",
                       {{"At the top left", "top-left"},
                        {"At the top right", "top-right"},
                        {"At the bottom left", "bottom-left"},
                        {"At the bottom right", "bottom-right"}},
                       parent)),
      own_(new LayerField("cells", {{"Row:", {"row"}}, {"Column:", {"column", "col"}}}, {},
                          parent)) {
    leaveOut_->setObjectName("leaveOut");
    own_->setToolTip("A layer of squares instead of a grid, with fields of their labels");
    for (auto* const box : {rows_, columns_})
        connect(box, &QSpinBox::valueChanged, this, &SquareChoices::TakeChange);
    for (auto* const line : {rowLabels_, columnLabels_})
        connect(line, &QLineEdit::textChanged, this, &SquareChoices::TakeChange);
    for (auto* const box : {squares_, origin_})
        connect(box, &QComboBox::currentIndexChanged, this, &SquareChoices::TakeChange);
    connect(leaveOut_, &QCheckBox::toggled, this, &SquareChoices::TakeChange);
    connect(own_, &LayerField::Changed, this, &SquareChoices::TakeChange);
    TakeChange();
}

void SquareChoices::AddTo(QFormLayout& form) const {
    AddSide(form, "&Grid rows:", rows_, rowLabels_);
    AddSide(form, "Grid &columns:", columns_, columnLabels_);
    form.addRow(QString(), leaveOut_);
    form.addRow("S&quares of a sheet:", squares_);
}

void SquareChoices::AddMoreTo(QFormLayout& form, Disclosure& more) const {
    AddMore(form, more, "Labels begin:", origin_);
    AddMore(form, more, "O&wn squares:", own_);
}

int SquareChoices::MoreSet() const {
    return (origin_->currentIndex() > 0 ? 1 : 0) + (HasOwn() ? 1 : 0);
}

bool SquareChoices::IsUsable() const {
    return !HasOwn() || own_->IsUsable();
}

bool SquareChoices::HasOwn() const {
    return !own_->IsEmpty();
}

bool SquareChoices::HasGrid() const {
    return !HasOwn() && rows_->value() + columns_->value() > 0;
}

std::string SquareChoices::LeftOut() const {
    return leaveOut_->isChecked() ? "IOio" : "";
}

// Squares of one's own bring their labels; a grid of none has no labels.
void SquareChoices::TakeChange() {
    for (QWidget* const control : std::initializer_list<QWidget*>{rows_, columns_})
        control->setEnabled(!HasOwn());
    for (QWidget* const control : std::initializer_list<QWidget*>{leaveOut_, origin_})
        control->setEnabled(HasGrid());
    rowLabels_->setEnabled(HasGrid() && rows_->value() > 0);
    columnLabels_->setEnabled(HasGrid() && columns_->value() > 0);
    rowLabels_->setPlaceholderText(desk::ToQt(DefaultLabels(rows_->value(), true, LeftOut())));
    columnLabels_->setPlaceholderText(desk::ToQt(DefaultLabels(columns_->value(), false)));
    Q_EMIT Changed();
}

void SquareChoices::FillIn(LocateOptions& options) const {
    options.squares = ChosenData(*squares_);
    if (HasOwn()) {
        options.cells = desk::FromQt(own_->Path());
        options.cellRow = desk::FromQt(own_->Field(0));
        options.cellColumn = desk::FromQt(own_->Field(1));
    } else if (HasGrid()) {
        FillInGrid(options);
    }
}

void SquareChoices::FillInGrid(LocateOptions& options) const {
    if (rows_->value() == 0 || columns_->value() == 0)
        throw UsageError(rows_->value() == 0 ? "The grid has columns, but no rows."
                                             : "The grid has rows, but no columns.");
    options.grid = std::to_string(rows_->value()) + 'x' + std::to_string(columns_->value());
    options.rowLabels = desk::FromQt(rowLabels_->text());
    options.columnLabels = desk::FromQt(columnLabels_->text());
    options.leftOut = LeftOut();
    options.origin = ChosenData(*origin_);
}

}  // namespace app
