// The events that only pass an edit on, and what an edit does.

#include "model/Edit.h"
#include "page/ControlValues.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "ui_frmGazetteerPropertyPage.h"

namespace gazetteer {

using Form = frmGazetteerPropertyPage;

// The columns and the three keys of the link stand in the fields; everything else is what the
// controls show. The results of the last run and the verdict are written anew.
void Form::UpdateProperties() try {
    if (populating_) return;
    Settings edited = fields_;
    controls_.Read(edited);
    edited.linkToMapSeries = IsLinkTicked();
    edited.indexDatabaseFile = ShownText(*this, "txtDatabaseFile");
    StoreEdit(*host_, edited, CanDrawIndex(), *Require<host::IHostPropertySet>(properties_));
    isPageDirty_ = true;
    if (pageSite_) pageSite_->PageChanged();
    // An edit takes the element out of draft state, so that the next apply decides afresh.
    Require<host::IHostFrameElement>(element_)->SetDraft(false);
} catch (...) {
    PassOn("UpdateProperties", kFormLabel);
}

bool Form::CanDrawIndex() const {
    return haveDatabase_ && expressionsValid_ && sizingValid_ &&
           (!IsLinkTicked() || haveMapSeriesFrame_);
}

bool Form::IsLinkTicked() const {
    return ui_->chkLinkToMapSeriesFrame->isChecked();
}

void Form::OnChange(const char* procedure, void (Form::*takeOver)()) {
    Top(procedure, [&] {
        if (!populating_) (this->*takeOver)();
    });
}

// clang-format off
void Form::ChkAddStartingBreak_Click() { OnChange(__func__, &Form::UpdateProperties); }
void Form::chkAutoRefreshListings_Click() { OnChange(__func__, &Form::UpdateProperties); }
void Form::ChkClearRepeatingText_Click() { OnChange(__func__, &Form::UpdateProperties); }
void Form::ChkCombineFirstAndLast_Click() { OnChange(__func__, &Form::UpdateProperties); }
void Form::chkCombineListings_Click() { OnChange(__func__, &Form::UpdateProperties); }
void Form::chkMultipleColumnGroups_Click() { OnChange(__func__, &Form::UpdateProperties); }
void Form::chkSamplePage_Click() { OnChange(__func__, &Form::UpdateProperties); }
void Form::chkSortIndex_Click() { OnChange(__func__, &Form::UpdateProperties); }
void Form::optCombineListings_Click(int) { OnChange(__func__, &Form::UpdateProperties); }
void Form::OptDisplayDirection_Click(int) { OnChange(__func__, &Form::UpdateProperties); }
void Form::OptSortOrder_Click(int) { OnChange(__func__, &Form::UpdateProperties); }
void Form::txtCombineDelimeter_Change() { OnChange(__func__, &Form::UpdateProperties); }
void Form::txtDefaultPage_Change() { OnChange(__func__, &Form::UpdateProperties); }
void Form::txtGroupSpacing_Change() { OnChange(__func__, &Form::UpdateProperties); }

void Form::chkAlternateBackground_Click() { OnChange(__func__, &Form::UpdateColumnProperties); }
void Form::chkBreakColumn_Click() { OnChange(__func__, &Form::UpdateColumnProperties); }
void Form::chkBreakHeader_Click() { OnChange(__func__, &Form::UpdateColumnProperties); }
void Form::chkColumnBackground_Click() { OnChange(__func__, &Form::UpdateColumnProperties); }
void Form::chkDisplayTitle_Click() { OnChange(__func__, &Form::UpdateColumnProperties); }
void Form::chkMissingHeaders_Click() { OnChange(__func__, &Form::UpdateColumnProperties); }
void Form::cmbAlignment_Click() { OnChange(__func__, &Form::UpdateColumnProperties); }
void Form::cmbTitleAlignment_Change() { OnChange(__func__, &Form::UpdateColumnProperties); }
void Form::optColumnSource_Click(int) { OnChange(__func__, &Form::UpdateColumnProperties); }
void Form::txtBottomMargin_Change() { OnChange(__func__, &Form::UpdateColumnProperties); }
void Form::txtBreakSpacing_Change() { OnChange(__func__, &Form::UpdateColumnProperties); }
void Form::txtColumnTitle_Change() { OnChange(__func__, &Form::UpdateColumnProperties); }
void Form::txtColumnWidth_Change() { OnChange(__func__, &Form::UpdateColumnProperties); }
void Form::txtExpression_Change() { OnChange(__func__, &Form::UpdateColumnProperties); }
void Form::txtLeftMargin_Change() { OnChange(__func__, &Form::UpdateColumnProperties); }
void Form::txtRightMargin_Change() { OnChange(__func__, &Form::UpdateColumnProperties); }
void Form::txtTopMargin_Change() { OnChange(__func__, &Form::UpdateColumnProperties); }
// clang-format on

}  // namespace gazetteer
