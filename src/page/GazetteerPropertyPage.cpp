#include "page/GazetteerPropertyPage.h"

#include <QApplication>
#include <utility>

#include "model/EditRules.h"
#include "model/GeneralFunctions.h"
#include "page/StoredEdits.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"

namespace gazetteer {
GazetteerPropertyPage::GazetteerPropertyPage(host::Ref<host::IHost> host) : host_(std::move(host)) {
    try {
        if (qApp == nullptr)
            Raise("GazetteerPropertyPage.Class_Initialize",
                  "The property page needs a host with windows.");
        form_ = new frmGazetteerPropertyPage(host_);
    } catch (...) {
        ShowAtTop("Class_Initialize");
    }
}

GazetteerPropertyPage::~GazetteerPropertyPage() {
    try {
        UnloadForm();
        delete form_.data();
    } catch (...) {
        ShowAtTop("Class_Terminate");
    }
}

void GazetteerPropertyPage::ShowAtTop(const char* operation) noexcept {
    gazetteer::ShowAtTop(host_->Dialogs(), operation, kPropertyPageLabel);
}

frmGazetteerPropertyPage& GazetteerPropertyPage::Form() {
    if (form_) return *form_;
    throw host::Failure(host::kFailureUnspecified, "GazetteerPropertyPage.Form",
                        "The form of the property page is gone.");
}

std::int32_t GazetteerPropertyPage::Width() try { return Form().width(); } catch (...) {
    ShowAtTop("IComPropertyPage_Width");
    return 0;
}

std::int32_t GazetteerPropertyPage::Height() try { return Form().height(); } catch (...) {
    ShowAtTop("IComPropertyPage_Height");
    return 0;
}

void GazetteerPropertyPage::SetPageSite(const host::Ref<host::IHostPageSite>& site) try {
    Form().SetPageSite(site);
} catch (...) {
    ShowAtTop("IComPropertyPage_PageSite");
}

bool GazetteerPropertyPage::IsPageDirty() try { return Form().IsPageDirty(); } catch (...) {
    ShowAtTop("IComPropertyPage_IsPageDirty");
    return false;
}

host::WindowHandle GazetteerPropertyPage::Activate() try {
    return static_cast<host::WindowHandle>(Form().winId());
} catch (...) {
    ShowAtTop("IComPropertyPage_Activate");
    return 0;
}

void GazetteerPropertyPage::Deactivate() try { UnloadForm(); } catch (...) {
    ShowAtTop("IComPropertyPage_Deactivate");
}

void GazetteerPropertyPage::UnloadForm() {
    if (!form_) return;
    form_->hide();
    form_->Form_Unload();
    form_->setParent(nullptr);
}

bool GazetteerPropertyPage::Applies(const host::Ref<host::IHostObjectSet>& objects) try {
    return HasGazetteer(*host_, *Require<host::IHostObjectSet>(objects));
} catch (...) {
    ShowAtTop("IComPropertyPage_Applies");
    return false;
}

// If there are several gazetteers, the last one is edited.
void GazetteerPropertyPage::SetObjects(const host::Ref<host::IHostObjectSet>& objects) try {
    if (const auto last = LastGazetteer(*host_, *Require<host::IHostObjectSet>(objects))) {
        stored_ = GetGazetteerProperties(*host_, last);
        element_ = last;
    }
    // A form that is already shown is filled again.
    const bool shown = Form().IsFilled();
    if (shown) Form().Form_Deactivate();
    Form().SetGazetteerProperties(CopySet(*host_, Require<host::IHostPropertySet>(stored_)));
    Form().SetGazetteerElement(element_);
    if (shown) Form().Form_Activate();
} catch (...) {
    ShowAtTop("IComPropertyPage_SetObjects");
}

void GazetteerPropertyPage::Show() try {
    Form().show();
    if (!Form().IsFilled()) Form().Form_Activate();
} catch (...) {
    ShowAtTop("IComPropertyPage_Show");
}

void GazetteerPropertyPage::Hide() try {
    Form().hide();
    if (Form().IsFilled()) Form().Form_Deactivate();
} catch (...) {
    ShowAtTop("IComPropertyPage_Hide");
}

void GazetteerPropertyPage::Apply() try {
    const auto working = Require<host::IHostPropertySet>(Form().GazetteerProperties());
    SetGazetteerProperties(*host_, element_, CopySet(*host_, working));
    StoreEditsBeside(Form());
    DrawStoredEdits(host_, element_);
} catch (...) {
    ShowAtTop("IComPropertyPage_Apply");
}

}  // namespace gazetteer
