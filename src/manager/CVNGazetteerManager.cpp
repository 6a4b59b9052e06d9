#include "manager/CVNGazetteerManager.h"

#include <utility>

#include "layout/PageDrawing.h"
#include "model/GeneralFunctions.h"
#include "support/ErrorHandling.h"

namespace gazetteer {

using host::IHostGroupElement;
using host::IHostPropertySet;
using host::Ref;

CVNGazetteerManager::CVNGazetteerManager(Ref<host::IHost> host) : host_(std::move(host)) {
    try {
        siblings_ = SiblingObjects::Create(*host_);
        MakeTransparentFill();
    } catch (...) {
        ShowAtTop(host_->Dialogs(), "Class_Initialize", kManagerLabel);
    }
}

// For columns without a background: neither area nor outline is visible.
void CVNGazetteerManager::MakeTransparentFill() {
    const auto transparent = [&] {
        auto color = host_->NewColor();
        color->SetRGB(0);
        color->SetTransparent(true);
        return color;
    };
    auto fill = host_->NewFillSymbol();
    fill->SetColor(transparent());
    auto outline = host_->NewLineSymbol();
    outline->SetColor(transparent());
    fill->SetOutline(outline);
    transparentFill_ = fill;
}

void CVNGazetteerManager::SetIndexElement(const Ref<IHostGroupElement>& indexElement) try {
    if (!HasGazetteerProperties(*host_, indexElement))
        Raise("CVNGazetteerManager.SetIndexElement",
              "Index element no longer has series properties.");
    hasRun_ = false;
    pagesJudged_ = false;
    report_ = {};
    const std::int32_t earlierPages = working_.pageCount;
    try {
        BindSettings(indexElement);
        TakeResults();
    } catch (...) {
        DiscardResults(earlierPages);
        throw;
    }
} catch (...) {
    NoteFailure();
    ShowAtTop(host_->Dialogs(), "SetIndexElement", kManagerLabel);
}

void CVNGazetteerManager::TakeResults() {
    KeepCheck(CheckElementProperties(*host_, siblings_, indexElement_));
    if (!canDraw_) return;
    if (settings_.haveSavedListings && !settings_.autoRefreshListings)
        Reload();
    else
        PopulateIndexTable();
}

// After a failure: new empty sets, so that no page of an earlier element is drawn into this one.
// The page count keeps its value.
void CVNGazetteerManager::DiscardResults(std::int32_t earlierPages) {
    for (const auto set : {&WorkingResults::listings, &WorkingResults::pageGroups,
                           &WorkingResults::firstListings, &WorkingResults::lastListings})
        working_.*set = host_->NewPropertySet();
    working_.pageCount = earlierPages;
}

void CVNGazetteerManager::BindSettings(const Ref<IHostGroupElement>& indexElement) {
    indexElement_ = indexElement;
    properties_ = StoredGazetteerProperties(indexElement_);
    ReadSettings(*host_, *properties_, settings_);
    settings_.typesetting =
        StoredTypesetting(indexElement_, host_->Locale()).value_or(Typesetting());
    canDraw_ = settings_.canDrawIndex;
    check_.sectionKeys.clear();
    check_.templateKeys.clear();
    check_.seriesFrames.clear();
    indexElementSet_ = true;
}

void CVNGazetteerManager::KeepCheck(ElementCheck check) {
    canDraw_ = check.canDraw;
    findings_ = check.findings;
    check_.linkValid = check.linkValid;
    if (check.databaseTable) check_.databaseTable = check.databaseTable;
    if (!check.linkValid) return;
    check_.sectionKeys = std::move(check.sectionKeys);
    check_.templateKeys = std::move(check.templateKeys);
    check_.seriesFrames = std::move(check.seriesFrames);
    check_.seriesMapFrame = check.seriesMapFrame;
    check_.seriesFrameLayer = check.seriesFrameLayer;
    check_.indexLayerTable = check.indexLayerTable;
}

// Stored results are used unchanged: they are not compared with their source.
void CVNGazetteerManager::Reload() {
    working_ = {settings_.savedListings, settings_.pageGroups, settings_.pageFirstListings,
                settings_.pageLastListings, settings_.pageGroups->Count()};
}

bool CVNGazetteerManager::IsGazetteerElement(const Ref<IHostGroupElement>& groupElement) try {
    return HasGazetteerProperties(*host_, groupElement);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "IsGazetteerElement", kManagerLabel);
    return false;
}

// A failure of the check itself becomes its only finding.
void CVNGazetteerManager::NoteFailure() {
    findings_ = {CurrentFailure().cause};
}

bool CVNGazetteerManager::CanDrawIndex(const Ref<IHostGroupElement>& indexElement) try {
    const ElementCheck check = CheckElementProperties(*host_, siblings_, indexElement);
    findings_ = check.findings;
    return check.canDraw;
} catch (...) {
    NoteFailure();
    ShowAtTop(host_->Dialogs(), "CanDrawIndex", kManagerLabel);
    return false;
}

void CVNGazetteerManager::SetIndexToPageNumber(std::int32_t pageNumber) try {
    constexpr char kSource[] = "CVNGazetteerManager.SetIndexToPageNumber";
    if (!indexElementSet_) Raise(kSource, "IndexElement has not been set.");
    if (!canDraw_) Raise(kSource, "IndexElement properties have not been set.");
    // Pages count from 1. Page 0 is refused before the page drawn last is removed.
    if (pageNumber <= 0 || pageNumber > working_.pageCount)
        Raise(kSource, "Page number out of range.");
    if (!DrawPage(*host_, settings_, working_, transparentFill_, indexElement_, pageNumber))
        canDraw_ = false;
} catch (...) {
    ShowAtTop(host_->Dialogs(), "SetIndexToPageNumber", kManagerLabel);
}

void CVNGazetteerManager::DraftMode() try {
    if (!indexElementSet_) Raise("CVNGazetteerManager.DraftMode", "IndexElement has not been set.");
    TakePageAway(indexElement_);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "DraftMode", kManagerLabel);
}

Ref<IHostPropertySet> CVNGazetteerManager::MakeGazetteerProperties() try {
    return NewGazetteerProperties(*host_);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "MakeGazetteerProperties", kManagerLabel);
    return nullptr;
}

void CVNGazetteerManager::AddGazetteerProperties(
    const Ref<IHostGroupElement>& groupElement, const Ref<IHostPropertySet>& seriesProperties) try {
    if (!SetGazetteerProperties(*host_, groupElement, seriesProperties))
        Raise("CVNGazetteerManager.AddGazetteerProperties",
              "Error attempting to set gazetteer properties.");
} catch (...) {
    ShowAtTop(host_->Dialogs(), "AddGazetteerProperties", kManagerLabel);
}

void CVNGazetteerManager::RemoveGazetteerProperties(
    const Ref<IHostGroupElement>& groupElement) try {
    DeleteKeyProperties(*host_, groupElement);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "RemoveGazetteerProperties", kManagerLabel);
}

void CVNGazetteerManager::Reset() try {
    indexElementSet_ = false;
    check_ = {};
    settings_.savedListings = nullptr;
    settings_.pageGroups = nullptr;
    settings_.columnsProperties = nullptr;
    settings_.columnDisplayOrder = nullptr;
    settings_.columnSortOrder = nullptr;
    working_.listings = nullptr;
    working_.pageGroups = nullptr;
} catch (...) {
    ShowAtTop(host_->Dialogs(), "Reset", kManagerLabel);
}

}  // namespace gazetteer
