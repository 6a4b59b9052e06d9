// Commands for the listing database, the columns and their two orders.

#include "model/EditRules.h"
#include "model/Paths.h"
#include "page/ControlValues.h"
#include "page/DatabasePath.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/ErrorHandling.h"
#include "ui_frmGazetteerPropertyPage.h"

namespace gazetteer {

using Form = frmGazetteerPropertyPage;

void Form::cmdSetNewFileName_Click() {
    const std::string path = PickListingDatabase(*host_);
    if (path.empty()) return;
    const auto table = OpenTableFile(*host_, path);
    if (table->FindField("Page") < 0) {
        host_->Dialogs().MessageBox(
            {.title = "Invalid Listing Database!",
             .text = "Selected dBase file does not contain required \"Page\" field!",
             .style = host::kStopOk});
        return;
    }
    ShowText(*this, "txtDatabaseFile", path);
    listingTable_ = table;
    if (ui_->lstListingColumns->count() == 0)
        DefineColumns(*host_, *table->Fields(), fields_);
    else
        CheckColumnExpressions(true);
    txtDatabaseFile_Change();
    haveDatabase_ = true;
}

void Form::txtDatabaseFile_Change() try {
    UpdateColumnLists();
    UpdateProperties();
} catch (...) {
    ShowAtTop(host_->Dialogs(), "txtDatabaseFile_Change", kFormLabel);
}

void Form::UpdateColumnLists() try {
    PopulateLists();
    if (ui_->lstListingColumns->count() > 0) lstListingColumns_Click();
} catch (...) {
    PassOn("UpdateColumnLists", kFormLabel);
}

// The editors still hold the previous column, which is stored first. The checks come last, so that
// a failing check does not prevent the selected column from being opened.
void Form::lstListingColumns_Click() try {
    if (events_.IsPopulating()) return;
    const bool wasOpen = !editors_.CurrentColumn().empty();
    if (wasOpen) editors_.UpdateColumnProperties();
    if (!filled_) return;  // The page site may have released the form.
    editors_.PopulateColumnProperties(SelectedText(*ui_->lstListingColumns));
    if (wasOpen) CheckColumns();
} catch (...) {
    ShowAtTop(host_->Dialogs(), "lstListingColumns_Click", kFormLabel);
}

void Form::cmdAdd_Click() {
    const auto answer = host_->Dialogs().InputBox(
        "Enter Column Name (Maximum of 8 characters, no spaces):", "Rename", "");
    const std::string name = CleanColumnName(host_->Locale(), answer.value_or(""));
    if (name.empty()) return;
    if (!FindColumn(host_->Locale(), fields_, name).empty()) {
        host_->Dialogs().MessageBox(NameInUseMessage());
        return;
    }
    const bool isOpen = !editors_.CurrentColumn().empty();
    const ColumnProperties current = editors_.Shown();
    AddColumn(*host_, fields_, name, isOpen ? &current : nullptr);
    UpdateColumnLists();
    UpdateProperties();
}

void Form::cmdRemove_Click() {
    const std::string name = SelectedText(*ui_->lstListingColumns);
    if (!MayRemoveColumn(*host_, fields_, name)) return;
    if (host_->Dialogs().MessageBox(RemoveColumnQuestion()) != host::MessageAnswer::Yes) return;
    RemoveColumn(fields_, name);
    // The editors hold the removed column, or one whose edits are already stored.
    editors_.Close();
    UpdateColumnLists();
    UpdateProperties();
    CheckColumns();
    UpdateProperties();
}

// All other marks are already in the set.
void Form::lstSortOrder_ItemCheck() {
    const auto& list = *ui_->lstSortOrder;
    for (int row = 0; row < list.count(); ++row)
        fields_.columnSortOrder->SetItem(FromQt(list.item(row)->text()),
                                         list.item(row)->checkState() == Qt::Checked);
    editors_.UpdateColumnProperties();
}

// Creates a new set even if no row has moved.
void Form::Rearrange(QListWidget& list, host::Ref<host::IHostPropertySet> Settings::*order,
                     Movement movement, const char* procedure) try {
    if (list.count() == 0) return;
    MoveSelectedRow(list, movement);
    fields_.*order = Reordered(*host_, *(fields_.*order), RowTexts(list));
    UpdateProperties();
} catch (...) {
    PassOn(procedure, kFormLabel);
}

}  // namespace gazetteer
