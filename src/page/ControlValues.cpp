#include "page/ControlValues.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <algorithm>

#include "host/Failure.h"
#include "support/Conversions.h"

namespace gazetteer {
namespace {

// Property that keeps the text set on a control that cannot show every text: a box of several lines
// normalises blanks and line ends (such boxes are read-only), and a drop-down list shows no
// selection for a text that it does not offer.
constexpr char kWholeText[] = "wholeText";

QWidget* Find(const QWidget& form, const std::string& name) {
    return form.findChild<QWidget*>(ToQt(name));
}

int TargetRow(int row, int count, Movement movement) {
    if (movement == Movement::Top) return 0;
    if (movement == Movement::Bottom) return count - 1;
    return std::clamp(row + (movement == Movement::Up ? -1 : 1), 0, count - 1);
}

}  // namespace

QWidget& ControlNamed(const QWidget& form, const std::string& name) {
    QWidget* control = Find(form, name);
    if (control == nullptr) control = Find(form, name + "_0");
    if (control != nullptr) return *control;
    throw host::Failure(host::kFailureNotFound, "gazetteer::ControlNamed",
                        "The form has no control \"" + name + "\".");
}

void ShowFlag(const QWidget& form, const std::string& control, bool value) {
    auto& first = dynamic_cast<QAbstractButton&>(ControlNamed(form, control));
    auto* second = dynamic_cast<QAbstractButton*>(Find(form, control + "_1"));
    if (second == nullptr)
        first.setChecked(value);
    else
        (value ? first : *second).setChecked(true);
}

bool ShownFlag(const QWidget& form, const std::string& control) {
    return dynamic_cast<QAbstractButton&>(ControlNamed(form, control)).isChecked();
}

void ShowText(const QWidget& form, const std::string& control, const std::string& text) {
    QWidget& widget = ControlNamed(form, control);
    if (auto* line = dynamic_cast<QLineEdit*>(&widget)) {
        line->setText(ToQt(text));
        line->setCursorPosition(0);
        return;
    }
    widget.setProperty(kWholeText, ToQt(text));
    if (auto* list = dynamic_cast<QComboBox*>(&widget)) {
        list->setCurrentIndex(
            list->findText(ToQt(text), Qt::MatchExactly | Qt::MatchCaseSensitive));
    } else {
        dynamic_cast<QPlainTextEdit&>(widget).setPlainText(ToQt(text));
    }
}

std::string ShownText(const QWidget& form, const std::string& control) {
    const QWidget& widget = ControlNamed(form, control);
    if (const auto* line = dynamic_cast<const QLineEdit*>(&widget)) return FromQt(line->text());
    const auto* list = dynamic_cast<const QComboBox*>(&widget);
    if (list != nullptr && list->currentIndex() >= 0) return FromQt(list->currentText());
    return FromQt(widget.property(kWholeText).toString());
}

void FillList(QComboBox& list, const std::vector<std::string>& entries) {
    const QSignalBlocker quiet(list);
    list.clear();
    for (const std::string& entry : entries) list.addItem(ToQt(entry));
    list.setCurrentIndex(-1);
}

void FillList(QListWidget& list, const std::vector<std::string>& rows) {
    const QSignalBlocker quiet(list);
    list.clear();
    for (const std::string& row : rows) list.addItem(ToQt(row));
    if (!rows.empty()) list.setCurrentRow(0);
}

void FillCheckedList(QListWidget& list, const host::IHostPropertySet& marks) {
    const auto items = marks.AllItems();
    const QSignalBlocker quiet(list);
    FillList(list, items.names);
    for (int row = 0; row < list.count(); ++row) {
        QListWidgetItem* item = list.item(row);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        const bool mark = ToBoolean(items.values[static_cast<std::size_t>(row)]);
        item->setCheckState(mark ? Qt::Checked : Qt::Unchecked);
    }
}

std::string SelectedText(const QListWidget& list) {
    const QListWidgetItem* item = list.currentItem();
    return item == nullptr ? std::string() : FromQt(item->text());
}

std::vector<std::string> RowTexts(const QListWidget& list) {
    std::vector<std::string> texts;
    for (int row = 0; row < list.count(); ++row) texts.push_back(FromQt(list.item(row)->text()));
    return texts;
}

void MoveSelectedRow(QListWidget& list, Movement movement) {
    const int row = list.currentRow();
    if (row < 0) return;
    const int target = TargetRow(row, list.count(), movement);
    const QSignalBlocker quiet(list);
    list.insertItem(target, list.takeItem(row));  // Includes the check mark.
    list.setCurrentRow(target);
}

}  // namespace gazetteer
