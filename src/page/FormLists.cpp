#include "page/FormLists.h"

#include <QSignalBlocker>

#include "page/QtText.h"
#include "support/Conversions.h"

namespace gazetteer {
namespace {

int TargetRow(int row, int count, Movement movement) {
    switch (movement) {
        case Movement::Up:
            return std::max(row - 1, 0);
        case Movement::Down:
            return std::min(row + 1, count - 1);
        case Movement::Top:
            return 0;
        case Movement::Bottom:
            return count - 1;
    }
    return row;
}

}  // namespace

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
    list.insertItem(target, list.takeItem(row));  // The item takes its check mark along.
    list.setCurrentRow(target);
}

}  // namespace gazetteer
