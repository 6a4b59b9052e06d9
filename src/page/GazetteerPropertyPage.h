#pragma once

#include <QPointer>
#include <cstdint>
#include <string>

#include "host/Host.h"

namespace gazetteer {

class frmGazetteerPropertyPage;

/// The property page for an element with gazetteer properties. Edits a copy of the element's
/// properties; only Apply changes the element. Every operation is a top procedure of the failure
/// convention.
class GazetteerPropertyPage : public host::IComPropertyPage {
public:
    explicit GazetteerPropertyPage(host::Ref<host::IHost> host);
    ~GazetteerPropertyPage() override;

    void SetTitle(const std::string&) override {}
    std::string Title() override { return "Gazetteer"; }
    void SetPriority(std::int32_t) override {}
    std::int32_t Priority() override { return 1; }
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
    void Apply() override;
    void Cancel() override {}

private:
    frmGazetteerPropertyPage& Form();
    void UnloadForm();
    void ShowAtTop(const char* operation) noexcept;

    host::Ref<host::IHost> host_;
    /// A QPointer, because the sheet that embeds the form may delete it.
    QPointer<frmGazetteerPropertyPage> form_;
    /// The element's stored set, from which the working copy is made.
    host::Ref<host::IHostPropertySet> stored_;
    host::Ref<host::IHostGroupElement> element_;
};

}  // namespace gazetteer
