#pragma once

#include <string>
#include <vector>

#include "model/Results.h"
#include "model/Settings.h"
#include "page/FormEvents.h"

namespace Ui {
class frmGazetteerPropertyPage;
}

namespace gazetteer {

/// The link of the listing database to a map series frame: its check box and the three lists of
/// sections, templates and frames. Each list has "<None>" above what it offers.
class MapSeriesLink {
public:
    /// All but the handler must outlive this. The handler takes every edit over.
    MapSeriesLink(host::IHost& host, Ui::frmGazetteerPropertyPage& ui, FormEvents& events,
                  FormEvents::Handler updateProperties);

    /// Offers the map book of the document on show and selects what is stored.
    void Fill(const SiblingObjects& siblings, const Settings& settings);
    void Read(Settings& settings) const;
    /// Lets go of all objects.
    void Release();

    bool IsTicked() const;
    /// Ticked, and a frame was selected. Without a tick nothing is missing.
    bool IsInForce() const { return IsTicked() && haveFrame_; }
    bool IsComplete() const { return !IsTicked() || haveFrame_; }
    bool HaveFrame() const { return haveFrame_; }

    bool IsSeriesFrame();
    /// The table of the frame's index layer; null where it has none.
    host::Ref<host::IHostTable> OpenIndexLayer();

private:
    struct Choice {
        std::string sectionKey;
        std::string templateKey;
        std::string frameName;
    };

    void cmbSection_Click();
    void CmbTemplate_Click();
    void cmbMapSeriesFrame_Click();
    void EnableIndexLayerOption();
    bool FindTemplates();
    bool FindFrames();
    void FindFramesOrForget();
    void ForgetFrames();

    host::IHost& host_;
    Ui::frmGazetteerPropertyPage& ui_;
    SiblingObjects siblings_;
    Choice choice_;
    /// What the lists offer behind "<None>", in their order.
    std::vector<std::string> sectionKeys_;
    std::vector<std::string> templateKeys_;
    std::vector<host::Ref<host::IHostMapFrame>> frames_;
    host::Ref<host::IHostMapFrame> frame_;
    /// Some frame was selected; "<None>" does not take it back.
    bool haveFrame_ = false;
};

}  // namespace gazetteer
