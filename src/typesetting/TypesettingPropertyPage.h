#pragma once

#include <QPointer>
#include <cstdint>
#include <string>

#include "host/Host.h"

namespace gazetteer {

class TypesettingForm;

/// The property page for the settings of typesetting of a gazetteer, beside the page of its
/// properties. Only Apply changes the element. Every operation is a top procedure of the failure
/// convention.
class TypesettingPropertyPage : public host::IComPropertyPage {
public:
    explicit TypesettingPropertyPage(host::Ref<host::IHost> host);
    ~TypesettingPropertyPage() override;

    void SetTitle(const std::string&) override {}
    std::string Title() override { return "Typesetting"; }
    void SetPriority(std::int32_t) override {}
    std::int32_t Priority() override { return 2; }
    std::int32_t Width() override;
    std::int32_t Height() override;
    void SetPageSite(const host::Ref<host::IHostPageSite>& site) override;
    bool IsPageDirty() override;
    std::string HelpFile() override { return {}; }
    std::int32_t HelpContextID(std::int32_t) override { return 0; }
    host::WindowHandle Activate() override;
    void Deactivate() override;
    bool Applies(const host::Ref<host::IHostObjectSet>& objects) override;
    void SetObjects(const host::Ref<host::IHostObjectSet>& objects) override;
    void Show() override;
    void Hide() override;
    /// Stores the edits, runs the gazetteer and refreshes the layout; does nothing where the
    /// element has them, as after the Apply of another page of the sheet.
    void Apply() override;
    void Cancel() override {}

private:
    TypesettingForm& Form();
    template <class Act>
    auto AtTop(const char* operation, const Act& act) noexcept;

    host::Ref<host::IHost> host_;
    /// A QPointer, because the sheet that embeds the form may delete it.
    QPointer<TypesettingForm> form_;
    host::Ref<host::IHostGroupElement> element_;
};

}  // namespace gazetteer
