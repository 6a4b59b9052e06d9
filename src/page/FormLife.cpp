// The form's life: made, filled, emptied, unloaded.

#include <QEvent>

#include "model/Edit.h"
#include "page/FormPictures.h"
#include "page/FormSizing.h"
#include "page/HandlerWiring.h"
#include "page/SymbolPreview.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "ui_frmGazetteerPropertyPage.h"

namespace gazetteer {

frmGazetteerPropertyPage::frmGazetteerPropertyPage(host::Ref<host::IHost> host)
    : host_(std::move(host)),
      ui_(std::make_unique<Ui::frmGazetteerPropertyPage>()),
      controls_(*this, host_->Locale()) {
    LoadFormPictures();
    ui_->setupUi(this);
    ReleaseObjects();
    ConnectHandlers(*this);
    Form_Load();
}

frmGazetteerPropertyPage::~frmGazetteerPropertyPage() = default;

void frmGazetteerPropertyPage::Form_Load() try { FitFormToTabs(*this); } catch (...) {
    ShowAtTop(host_->Dialogs(), "Form_Load", kFormLabel);
}

void frmGazetteerPropertyPage::Form_Activate() try {
    ReleaseObjects();
    ui_->SSTabColumnProps->setEnabled(false);
    const auto properties = Require<host::IHostPropertySet>(properties_);
    ReadSettings(*host_, *properties, fields_, SettingsScope::Edit);
    PopulateForm();
    populating_ = false;
    SetFilled(true);
    if (ui_->lstListingColumns->count() > 0) lstListingColumns_Click();
    ui_->SSTabGazetteerProperties->setCurrentIndex(0);
    ui_->SSTabColumnProps->setCurrentIndex(0);
    update();
} catch (...) {
    // Whatever is on show then is not to be edited: populating stays until the next activation.
    ShowAtTop(host_->Dialogs(), "Form_Activate", kFormLabel);
}

void frmGazetteerPropertyPage::Form_Deactivate() try { ReleaseObjects(); } catch (...) {
    ShowAtTop(host_->Dialogs(), "Form_Deactivate", kFormLabel);
}

void frmGazetteerPropertyPage::Form_Unload() try {
    ReleaseObjects();
    pageSite_ = nullptr;
} catch (...) {
    ShowAtTop(host_->Dialogs(), "Form_Unload", kFormLabel);
}

// What does not show the working copy cannot be worked with.
void frmGazetteerPropertyPage::SetFilled(bool filled) {
    filled_ = filled;
    ui_->SSTabGazetteerProperties->setEnabled(filled);
}

// Everything that comes back from the working copy at the next activation.
void frmGazetteerPropertyPage::ReleaseObjects() {
    SetFilled(false);
    populating_ = true;
    listingTable_ = nullptr;
    mapFrame_ = nullptr;
    siblings_ = {};
    sectionKeys_.clear();
    templateKeys_.clear();
    frames_.clear();
    for (const auto set : {&Settings::columnNames, &Settings::columnsProperties,
                           &Settings::columnDisplayOrder, &Settings::columnSortOrder})
        fields_.*set = host_->NewPropertySet();
    editors_ = {};
    currentColumn_.clear();
    haveDatabase_ = haveMapSeriesFrame_ = expressionsValid_ = sizingValid_ = false;
    for (auto* preview : findChildren<SymbolPreview*>()) preview->Clear();
}

void frmGazetteerPropertyPage::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const auto type = event->type();
    if (type == QEvent::FontChange || type == QEvent::StyleChange) Form_Load();
}

}  // namespace gazetteer
