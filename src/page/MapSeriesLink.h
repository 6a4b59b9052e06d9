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

/// Link of the listing database to a map series frame: the check box and the lists of sections,
/// templates and frames. Each list starts with "<None>".
class MapSeriesLink {
public:
    /// The references must outlive this. The handler is called on every edit.
    MapSeriesLink(host::IHost& host, Ui::frmGazetteerPropertyPage& ui, FormEvents& events,
                  FormEvents::Handler updateProperties);

    /// Lists the sections of the current document's map book and selects the stored choice.
    void Fill(const SiblingObjects& siblings, const Settings& settings);
    void Read(Settings& settings) const;
    void Release();

    bool IsTicked() const;
    /// IsInForce: ticked, and a frame was selected. IsComplete: also true without a tick.
    bool IsInForce() const { return IsTicked() && haveFrame_; }
    bool IsComplete() const { return !IsTicked() || haveFrame_; }
    bool HaveFrame() const { return haveFrame_; }

    bool IsSeriesFrame();
    /// Returns the table of the frame's index layer; null if it has none.
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
    /// Entries after "<None>", in list order.
    std::vector<std::string> sectionKeys_;
    std::vector<std::string> templateKeys_;
    std::vector<host::Ref<host::IHostMapFrame>> frames_;
    host::Ref<host::IHostMapFrame> frame_;
    /// A frame was selected at some time; selecting "<None>" does not reset it.
    bool haveFrame_ = false;
};

}  // namespace gazetteer
