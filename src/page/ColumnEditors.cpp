// The open column: its set into the editors, and the editors back into a new set.

#include "model/Keys.h"
#include "page/SymbolPreview.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "ui_frmGazetteerPropertyPage.h"

namespace gazetteer {

using Form = frmGazetteerPropertyPage;

void Form::PopulateColumnProperties() try {
    const std::string name = SelectedText(*ui_->lstListingColumns);
    if (name.empty()) return;
    editors_ = WithOwnSymbols(ReadColumnProperties(*SetUnder(*fields_.columnsProperties, name),
                                                   host_->Locale(), ColumnKeyScope::All));
    controls_.Fill(editors_);
    DrawPreview(*ui_->picColumnFont, editors_.columnFontSymbol);
    DrawPreview(*ui_->picBackgroundSymbol, editors_.backgroundSymbol);
    DrawPreview(*ui_->picAlternateBackgroundSymbol, editors_.alternateBackgroundSymbol);
    DrawPreview(*ui_->picBreakFont, editors_.breakFontSymbol);
    DrawPreview(*ui_->picTitleFont, editors_.titleFontSymbol);
    DrawPreview(*ui_->picTitleBackground, editors_.titleBackgroundSymbol);
} catch (...) {
    PassOn("PopulateColumnProperties", kFormLabel);
}

// The column's old set is replaced as a whole. Without an open column there is nothing to save
// beside the rest of the form.
void Form::UpdateColumnProperties() try {
    if (!currentColumn_.empty()) {
        ColumnProperties column = WithOwnSymbols(ReadEditors());
        column.version = 1;
        fields_.columnsProperties->SetItem(
            currentColumn_, host::Ref<host::IHostObject>(NewColumnSet(*host_, column)));
    }
    UpdateProperties();
} catch (...) {
    PassOn("UpdateColumnProperties", kFormLabel);
}

// What the controls show, with the form's own symbols.
ColumnProperties Form::ReadEditors() const {
    ColumnProperties column = editors_;
    controls_.Read(column);
    return column;
}

// Gives every column what the editors hold under some keys. No two columns share a symbol.
void Form::SetInAllColumns(const std::vector<const char*>& keys) {
    const ColumnProperties editors = ReadEditors();
    for (const std::string& name : RowTexts(*ui_->lstListingColumns)) {
        const ColumnProperties own = WithOwnSymbols(editors);
        const auto column = SetUnder(*fields_.columnsProperties, name);
        for (const char* key : keys) column->SetItem(key, ValueOf(*FindColumnKey(key), own));
    }
    UpdateProperties();
}

void Form::cmdColumnFontToAll_Click() try {
    if (!editors_.columnFontSymbol) return;
    SetInAllColumns({"ColumnFontSymbol"});
} catch (...) {
    ShowAtTop(host_->Dialogs(), "cmdColumnFontToAll_Click", kFormLabel);
}

void Form::cmdBackgroundToAll_Click() try {
    if (!editors_.backgroundSymbol || !editors_.alternateBackgroundSymbol) return;
    SetInAllColumns({"ColorBackground", "BackgroundSymbol", "AlternateBackground",
                     "AlternateBackgroundSymbol"});
} catch (...) {
    ShowAtTop(host_->Dialogs(), "cmdBackgroundToAll_Click", kFormLabel);
}

void Form::cmdMarginsToAll_Click() try {
    if (!editors_.backgroundSymbol || !editors_.alternateBackgroundSymbol) return;
    SetInAllColumns({"MarginTop", "MarginBottom", "MarginLeft", "MarginRight"});
} catch (...) {
    ShowAtTop(host_->Dialogs(), "cmdMarginsToAll_Click", kFormLabel);
}

void Form::cmdTitleSymbolsToAll_Click() try {
    if (!editors_.titleFontSymbol || !editors_.titleBackgroundSymbol) return;
    SetInAllColumns({"TitleFontSymbol", "TitleBackgroundSymbol"});
} catch (...) {
    ShowAtTop(host_->Dialogs(), "cmdTitleSymbolsToAll_Click", kFormLabel);
}

}  // namespace gazetteer
