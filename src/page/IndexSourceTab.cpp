// Where the listings come from: the listing database, and its link to a map series frame.

#include <algorithm>

#include "manager/SeriesLink.h"
#include "model/ColumnList.h"
#include "model/Paths.h"
#include "page/ControlValues.h"
#include "page/DatabasePath.h"
#include "page/QtText.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "ui_frmGazetteerPropertyPage.h"

namespace gazetteer {
namespace {

// The position in the collection beside a list: the entry before the first is "<None>".
std::size_t Chosen(const QComboBox& list) {
    return static_cast<std::size_t>(list.currentIndex() - 1);
}

bool IsNone(const QComboBox& list) {
    return list.currentText() == kNoSelection;
}

}  // namespace

using Form = frmGazetteerPropertyPage;

void Form::chkLinkToMapSeriesFrame_Click() try {
    if (populating_) return;
    EnableIndexLayerOption();
    UpdateProperties();
} catch (...) {
    ShowAtTop(host_->Dialogs(), "chkLinkToMapSeriesFrame_Click", kFormLabel);
}

void Form::EnableIndexLayerOption() {
    ui_->optColumnSource_1->setEnabled(IsLinkedInFact());
}

// A template and a frame of the same key or name survive a change of section that has them.
void Form::cmbSection_Click() try {
    if (populating_ || ui_->cmbSection->currentIndex() < 0) return;
    if (IsNone(*ui_->cmbSection)) {
        FillList(*ui_->CmbTemplate, {kNoSelection});
        templateKeys_.clear();
        fields_.mapSeriesSectionKey.clear();
        fields_.mapSeriesTemplateKey.clear();
        ForgetFrames();
    } else {
        fields_.mapSeriesSectionKey = sectionKeys_.at(Chosen(*ui_->cmbSection));
        if (FindTemplates()) {
            if (!FindFrames()) fields_.mapSeriesFrameName.clear();
        } else {
            fields_.mapSeriesTemplateKey.clear();
            fields_.mapSeriesFrameName.clear();
        }
    }
    UpdateProperties();
} catch (...) {
    ShowAtTop(host_->Dialogs(), "cmbSection_Click", kFormLabel);
}

void Form::CmbTemplate_Click() try {
    if (populating_ || ui_->CmbTemplate->currentIndex() < 0) return;
    if (IsNone(*ui_->CmbTemplate)) {
        fields_.mapSeriesTemplateKey.clear();
        ForgetFrames();
    } else {
        fields_.mapSeriesTemplateKey = templateKeys_.at(Chosen(*ui_->CmbTemplate));
        if (!FindFrames()) fields_.mapSeriesFrameName.clear();
    }
    UpdateProperties();
} catch (...) {
    ShowAtTop(host_->Dialogs(), "CmbTemplate_Click", kFormLabel);
}

// "<None>" leaves the frame that was chosen before in force.
void Form::cmbMapSeriesFrame_Click() try {
    if (populating_ || ui_->cmbMapSeriesFrame->currentIndex() < 0) return;
    if (!IsNone(*ui_->cmbMapSeriesFrame)) {
        mapFrame_ = frames_.at(Chosen(*ui_->cmbMapSeriesFrame));
        fields_.mapSeriesFrameName = FromQt(ui_->cmbMapSeriesFrame->currentText());
        haveMapSeriesFrame_ = true;
    }
    EnableIndexLayerOption();
    UpdateProperties();
} catch (...) {
    ShowAtTop(host_->Dialogs(), "cmbMapSeriesFrame_Click", kFormLabel);
}

// Offers the templates of the section and selects the one in force; false if there is none.
bool Form::FindTemplates() {
    auto& book = *siblings_.mapBook;
    templateKeys_ = book.TemplateKeys(fields_.mapSeriesSectionKey);
    std::vector<std::string> names = {kNoSelection};
    for (const std::string& key : templateKeys_) names.push_back(book.TemplateName(key));
    FillList(*ui_->CmbTemplate, names);
    const auto kept = std::ranges::find(templateKeys_, fields_.mapSeriesTemplateKey);
    if (kept == templateKeys_.end()) return false;
    ui_->CmbTemplate->setCurrentIndex(1 + static_cast<int>(kept - templateKeys_.begin()));
    return true;
}

// Offers the frames of the template and selects the one in force, of several the last one; false if
// there is none.
bool Form::FindFrames() {
    frames_ = GetMapSeriesFrames(*siblings_.seriesManager,
                                 siblings_.mapBook->TemplateLayout(fields_.mapSeriesTemplateKey),
                                 kFormLabel);
    std::vector<std::string> names = {kNoSelection};
    int kept = 0;
    for (const auto& frame : frames_) {
        names.push_back(Require<host::IHostElementName>(frame)->Name());
        if (names.back() != fields_.mapSeriesFrameName) continue;
        mapFrame_ = frame;
        kept = static_cast<int>(names.size()) - 1;
    }
    FillList(*ui_->cmbMapSeriesFrame, names);
    if (kept == 0) return false;
    ui_->cmbMapSeriesFrame->setCurrentIndex(kept);
    return true;
}

void Form::ForgetFrames() {
    FillList(*ui_->cmbMapSeriesFrame, {kNoSelection});
    frames_.clear();
    fields_.mapSeriesFrameName.clear();
}

void Form::cmdSetNewFileName_Click() try {
    const std::string path = PickListingDatabase();
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
} catch (...) {
    ShowAtTop(host_->Dialogs(), "cmdSetNewFileName_Click", kFormLabel);
}

// The path of what the user picked; empty after a cancel.
std::string Form::PickListingDatabase() {
    const auto dialog = host_->NewObjectDialog();
    dialog->SetObjectFilter(host_->NewTableFilter());
    dialog->SetAllowMultiSelect(false);
    dialog->SetTitle("Output Table");
    host::Ref<host::IHostObjectSelection> selection;
    bool accepted = false;
    dialog->DoModal(host_->NewApplication()->WindowHandle(), selection, accepted);
    if (!accepted) return {};
    Require<host::IHostObjectSelection>(selection)->Reset();
    const auto object = Require<host::IHostCatalogObject>(selection->Next());
    return DatabasePath(object->Category(), object->FullName(), dialog->Name());
}

void Form::txtDatabaseFile_Change() try {
    if (populating_) return;
    UpdateColumnLists();
    UpdateProperties();
} catch (...) {
    ShowAtTop(host_->Dialogs(), "txtDatabaseFile_Change", kFormLabel);
}

}  // namespace gazetteer
