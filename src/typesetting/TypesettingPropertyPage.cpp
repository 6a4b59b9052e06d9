#include "typesetting/TypesettingPropertyPage.h"

#include <QApplication>
#include <utility>

#include "page/StoredEdits.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "typesetting/TypesettingForm.h"

namespace gazetteer {
namespace {

constexpr char kTypesettingPageLabel[] = "CVNGazetteer:TypesettingPropertyPage";

}  // namespace

using Page = TypesettingPropertyPage;

// Shows a failure; the result is then 0 or false.
template <class Act>
auto Page::AtTop(const char* operation, const Act& act) noexcept {
    try {
        return act();
    } catch (...) {
        ShowAtTop(host_->Dialogs(), operation, kTypesettingPageLabel);
        return decltype(act())();
    }
}

Page::TypesettingPropertyPage(host::Ref<host::IHost> host) : host_(std::move(host)) {
    AtTop("Class_Initialize", [this] {
        if (qApp == nullptr)
            Raise("TypesettingPropertyPage.Class_Initialize",
                  "The property page needs a host with windows.");
        form_ = new TypesettingForm(host_);
    });
}

Page::~TypesettingPropertyPage() {
    Deactivate();
    delete form_.data();
}

TypesettingForm& Page::Form() {
    if (form_) return *form_;
    throw host::Failure(host::kFailureUnspecified, "TypesettingPropertyPage.Form",
                        "The form of the property page is gone.");
}

std::int32_t Page::Width() {
    return AtTop("IComPropertyPage_Width", [this] { return Form().width(); });
}

std::int32_t Page::Height() {
    return AtTop("IComPropertyPage_Height", [this] { return Form().height(); });
}

void Page::SetPageSite(const host::Ref<host::IHostPageSite>& site) {
    AtTop("IComPropertyPage_PageSite", [&] { Form().SetPageSite(site); });
}

bool Page::IsPageDirty() {
    return AtTop("IComPropertyPage_IsPageDirty", [this] { return Form().IsPageDirty(); });
}

host::WindowHandle Page::Activate() {
    return AtTop("IComPropertyPage_Activate",
                 [this] { return static_cast<host::WindowHandle>(Form().winId()); });
}

void Page::Deactivate() {
    AtTop("IComPropertyPage_Deactivate", [this] {
        if (!form_) return;
        form_->hide();
        form_->SetPageSite(nullptr);
        form_->setParent(nullptr);
    });
}

bool Page::Applies(const host::Ref<host::IHostObjectSet>& objects) {
    return AtTop("IComPropertyPage_Applies",
                 [&] { return HasGazetteer(*host_, *Require<host::IHostObjectSet>(objects)); });
}

void Page::SetObjects(const host::Ref<host::IHostObjectSet>& objects) {
    AtTop("IComPropertyPage_SetObjects", [&] {
        element_ = LastGazetteer(*host_, *Require<host::IHostObjectSet>(objects));
        Form().SetElement(Require<host::IHostGroupElement>(element_));
    });
}

void Page::Show() {
    AtTop("IComPropertyPage_Show", [this] { Form().show(); });
}

void Page::Hide() {
    AtTop("IComPropertyPage_Hide", [this] { Form().hide(); });
}

void Page::Apply() {
    AtTop("IComPropertyPage_Apply", [this] {
        if (!Form().HasEdits()) return;
        Form().StoreEdits();
        DrawStoredEdits(host_, element_);
    });
}

}  // namespace gazetteer
