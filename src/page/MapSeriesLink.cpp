#include "page/MapSeriesLink.h"

#include <algorithm>
#include <utility>

#include "manager/SeriesLink.h"
#include "page/ControlValues.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "ui_frmGazetteerPropertyPage.h"

namespace gazetteer {
namespace {

// Returns the index into the keys of the list; entry 0 is "<None>".
std::size_t Chosen(const QComboBox& list) {
    return static_cast<std::size_t>(list.currentIndex() - 1);
}

bool IsNone(const QComboBox& list) {
    return list.currentText() == kNoSelection;
}

// Selects the entry of a key. Returns false if the key is not in the list.
bool Select(QComboBox& list, const std::vector<std::string>& keys, const std::string& key) {
    const auto found = std::ranges::find(keys, key);
    if (found == keys.end()) return false;
    list.setCurrentIndex(1 + static_cast<int>(found - keys.begin()));
    return true;
}

}  // namespace

MapSeriesLink::MapSeriesLink(host::IHost& host, Ui::frmGazetteerPropertyPage& ui,
                             FormEvents& events, FormEvents::Handler updateProperties)
    : host_(host), ui_(ui) {
    const auto connect = [&](const char* event, auto step) {
        events.Connect(event, [this, step, updateProperties] {
            (this->*step)();
            updateProperties();
        });
    };
    connect("chkLinkToMapSeriesFrame_Click", &MapSeriesLink::EnableIndexLayerOption);
    connect("cmbSection_Click", &MapSeriesLink::cmbSection_Click);
    connect("CmbTemplate_Click", &MapSeriesLink::CmbTemplate_Click);
    connect("cmbMapSeriesFrame_Click", &MapSeriesLink::cmbMapSeriesFrame_Click);
}

// A document without a map book has no current template and nothing to link to.
void MapSeriesLink::Fill(const SiblingObjects& siblings, const Settings& settings) {
    siblings_ = siblings;
    choice_ = {settings.mapSeriesSectionKey, settings.mapSeriesTemplateKey,
               settings.mapSeriesFrameName};
    ui_.chkLinkToMapSeriesFrame->setChecked(settings.linkToMapSeries);
    FillList(*ui_.CmbTemplate, {});
    FillList(*ui_.cmbMapSeriesFrame, {});
    const auto onShow = siblings_.layoutContext->CurrentTemplateKey();
    if (!std::holds_alternative<host::Empty>(onShow)) {
        auto& book = *siblings_.mapBook;
        const std::string section = book.TemplateSection(ToText(onShow, host_.Locale()));
        sectionKeys_ = book.SectionKeys(book.SectionBook(section));
    }
    std::vector<std::string> names = {kNoSelection};
    for (const std::string& key : sectionKeys_)
        names.push_back(siblings_.mapBook->SectionName(key));
    FillList(*ui_.cmbSection, names);
    if (Select(*ui_.cmbSection, sectionKeys_, choice_.sectionKey) && FindTemplates())
        haveFrame_ = FindFrames();
    EnableIndexLayerOption();
}

void MapSeriesLink::Read(Settings& settings) const {
    settings.linkToMapSeries = IsTicked();
    settings.mapSeriesSectionKey = choice_.sectionKey;
    settings.mapSeriesTemplateKey = choice_.templateKey;
    settings.mapSeriesFrameName = choice_.frameName;
}

void MapSeriesLink::Release() {
    siblings_ = {};
    choice_ = {};
    sectionKeys_.clear();
    templateKeys_.clear();
    frames_.clear();
    frame_ = nullptr;
    haveFrame_ = false;
}

bool MapSeriesLink::IsTicked() const {
    return ui_.chkLinkToMapSeriesFrame->isChecked();
}

void MapSeriesLink::EnableIndexLayerOption() {
    ui_.optColumnSource_1->setEnabled(IsInForce());
}

// If the new section has the same template and frame, they stay selected.
void MapSeriesLink::cmbSection_Click() {
    if (IsNone(*ui_.cmbSection)) {
        choice_ = {};
        FillList(*ui_.CmbTemplate, {kNoSelection});
        templateKeys_.clear();
        ForgetFrames();
        return;
    }
    choice_.sectionKey = sectionKeys_.at(Chosen(*ui_.cmbSection));
    if (FindTemplates()) {
        FindFramesOrForget();
    } else {
        choice_.templateKey.clear();
        choice_.frameName.clear();
    }
}

void MapSeriesLink::CmbTemplate_Click() {
    if (IsNone(*ui_.CmbTemplate)) {
        choice_.templateKey.clear();
        ForgetFrames();
        return;
    }
    choice_.templateKey = templateKeys_.at(Chosen(*ui_.CmbTemplate));
    FindFramesOrForget();
}

// "<None>" keeps the frame selected before.
void MapSeriesLink::cmbMapSeriesFrame_Click() {
    if (!IsNone(*ui_.cmbMapSeriesFrame)) {
        frame_ = frames_.at(Chosen(*ui_.cmbMapSeriesFrame));
        choice_.frameName = FromQt(ui_.cmbMapSeriesFrame->currentText());
        haveFrame_ = true;
    }
    EnableIndexLayerOption();
}

// Lists the templates of the section and selects the current one. Returns false if it is missing. A
// failing map book leaves the list and the keys empty, never of different sections.
bool MapSeriesLink::FindTemplates() {
    auto& book = *siblings_.mapBook;
    FillList(*ui_.CmbTemplate, {kNoSelection});
    templateKeys_.clear();
    auto keys = book.TemplateKeys(choice_.sectionKey);
    std::vector<std::string> names = {kNoSelection};
    for (const std::string& key : keys) names.push_back(book.TemplateName(key));
    templateKeys_ = std::move(keys);
    FillList(*ui_.CmbTemplate, names);
    return Select(*ui_.CmbTemplate, templateKeys_, choice_.templateKey);
}

// Lists the frames of the template and selects the current one; if several have its name, the last.
// Returns false if it is missing.
bool MapSeriesLink::FindFrames() {
    FillList(*ui_.cmbMapSeriesFrame, {kNoSelection});
    frames_.clear();
    auto frames =
        GetMapSeriesFrames(*siblings_.seriesManager,
                           siblings_.mapBook->TemplateLayout(choice_.templateKey), kFormLabel);
    std::vector<std::string> names = {kNoSelection};
    int kept = 0;
    for (const auto& frame : frames) {
        names.push_back(Require<host::IHostElementName>(frame)->Name());
        if (names.back() != choice_.frameName) continue;
        frame_ = frame;
        kept = static_cast<int>(names.size()) - 1;
    }
    frames_ = std::move(frames);
    FillList(*ui_.cmbMapSeriesFrame, names);
    if (kept == 0) return false;
    ui_.cmbMapSeriesFrame->setCurrentIndex(kept);
    return true;
}

void MapSeriesLink::FindFramesOrForget() {
    if (!FindFrames()) choice_.frameName.clear();
}

void MapSeriesLink::ForgetFrames() {
    FillList(*ui_.cmbMapSeriesFrame, {kNoSelection});
    frames_.clear();
    choice_.frameName.clear();
}

bool MapSeriesLink::IsSeriesFrame() {
    siblings_.seriesManager->ClearFrame();
    return siblings_.seriesManager->IsSeriesFrame(frame_);
}

host::Ref<host::IHostTable> MapSeriesLink::OpenIndexLayer() {
    auto& series = *siblings_.seriesManager;
    if (!series.HasIndexLayer(frame_)) return nullptr;
    series.ClearFrame();
    series.SetFrame(frame_);
    return series.IndexLayer()->Table();
}

}  // namespace gazetteer
