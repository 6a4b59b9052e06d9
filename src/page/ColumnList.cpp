// The list of columns, their two orders, and which column the editors hold.

#include "model/ColumnList.h"

#include <utility>

#include "page/QtText.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "ui_frmGazetteerPropertyPage.h"

namespace gazetteer {

namespace {

// Sets the flag for as long as it lives.
class Populating {
public:
    explicit Populating(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~Populating() { flag_ = before_; }
    Populating(const Populating&) = delete;
    Populating& operator=(const Populating&) = delete;

private:
    bool& flag_;
    bool before_;
};

}  // namespace

using Form = frmGazetteerPropertyPage;

void Form::UpdateColumnLists() try {
    PopulateLists();
    if (ui_->lstListingColumns->count() > 0) lstListingColumns_Click();
} catch (...) {
    PassOn("UpdateColumnLists", kFormLabel);
}

void Form::lstListingColumns_Click() try {
    if (populating_) return;
    SaveEditors();
    ShowSelectedColumn();
} catch (...) {
    ShowAtTop(host_->Dialogs(), "lstListingColumns_Click", kFormLabel);
}

// The editors still hold the column that was selected before.
void Form::SaveEditors() {
    if (currentColumn_.empty()) return;
    UpdateColumnProperties();
    CheckColumnExpressions(false);
    CheckColumnSizing(false);
}

void Form::ShowSelectedColumn() {
    if (!filled_) return;  // Emptied by whoever was told of the edit.
    {
        const Populating populating(populating_);
        PopulateColumnProperties();
    }
    currentColumn_ = SelectedText(*ui_->lstListingColumns);
}

void Form::cmdAdd_Click() try {
    if (populating_) return;
    const auto answer = host_->Dialogs().InputBox(
        "Enter Column Name (Maximum of 8 characters, no spaces):", "Rename", "");
    const std::string name = CleanColumnName(host_->Locale(), answer.value_or(""));
    if (name.empty()) return;
    if (!FindColumn(host_->Locale(), fields_, name).empty()) {
        host_->Dialogs().MessageBox(NameInUseMessage());
        return;
    }
    SaveEditors();
    const ColumnProperties current = ReadEditors();
    AddColumn(*host_, fields_, name, current.columnFontSymbol ? &current : nullptr);
    UpdateColumnLists();
    ShowSelectedColumn();
    UpdateProperties();
} catch (...) {
    ShowAtTop(host_->Dialogs(), "cmdAdd_Click", kFormLabel);
}

void Form::cmdRemove_Click() try {
    if (populating_) return;
    const std::string name = SelectedText(*ui_->lstListingColumns);
    if (name.empty() || !MayRemoveColumn(*host_, fields_, name)) return;
    if (host_->Dialogs().MessageBox(RemoveColumnQuestion()) != host::MessageAnswer::Yes) return;
    RemoveColumn(fields_, name);
    // The editors hold the removed column, or one whose edits are in its set already.
    currentColumn_.clear();
    UpdateColumnLists();
    ShowSelectedColumn();
    UpdateProperties();
} catch (...) {
    ShowAtTop(host_->Dialogs(), "cmdRemove_Click", kFormLabel);
}

void Form::lstSortOrder_ItemCheck(int Item) try {
    if (populating_ || Item < 0) return;
    const QListWidgetItem* row = ui_->lstSortOrder->item(Item);
    fields_.columnSortOrder->SetItem(FromQt(row->text()), row->checkState() == Qt::Checked);
    UpdateColumnProperties();
} catch (...) {
    ShowAtTop(host_->Dialogs(), "lstSortOrder_ItemCheck", kFormLabel);
}

// Both orders are those of their sets, so that another order is another set. The row need not have
// moved for that.
void Form::RearrangeColumnOrder(Movement movement) try {
    if (populating_ || ui_->lstDisplayOrder->count() == 0) return;
    MoveSelectedRow(*ui_->lstDisplayOrder, movement);
    fields_.columnDisplayOrder =
        Reordered(*host_, *fields_.columnDisplayOrder, RowTexts(*ui_->lstDisplayOrder));
    UpdateProperties();
} catch (...) {
    PassOn("RearrangeColumnOrder", kFormLabel);
}

void Form::RearrangeSortOrder(Movement movement) try {
    if (populating_ || ui_->lstSortOrder->count() == 0) return;
    MoveSelectedRow(*ui_->lstSortOrder, movement);
    fields_.columnSortOrder =
        Reordered(*host_, *fields_.columnSortOrder, RowTexts(*ui_->lstSortOrder));
    UpdateProperties();
} catch (...) {
    PassOn("RearrangeSortOrder", kFormLabel);
}

// clang-format off
void Form::cmdOrderUp_Click() { Top(__func__, [&] { RearrangeColumnOrder(Movement::Up); }); }
void Form::cmdOrderDown_Click() { Top(__func__, [&] { RearrangeColumnOrder(Movement::Down); }); }
void Form::cmdOrderTop_Click() { Top(__func__, [&] { RearrangeColumnOrder(Movement::Top); }); }
void Form::cmdOrderBottom_Click() { Top(__func__, [&] { RearrangeColumnOrder(Movement::Bottom); }); }
void Form::cmdSortUp_Click() { Top(__func__, [&] { RearrangeSortOrder(Movement::Up); }); }
void Form::cmdSortDown_Click() { Top(__func__, [&] { RearrangeSortOrder(Movement::Down); }); }
void Form::cmdSortTop_Click() { Top(__func__, [&] { RearrangeSortOrder(Movement::Top); }); }
void Form::cmdSortBottom_Click() { Top(__func__, [&] { RearrangeSortOrder(Movement::Bottom); }); }
// clang-format on

}  // namespace gazetteer
