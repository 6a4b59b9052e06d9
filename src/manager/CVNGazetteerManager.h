#pragma once

#include <cstdint>
#include <string>

#include "host/Host.h"
#include "manager/ElementCheck.h"
#include "manager/ICVNGazetteerManager.h"
#include "model/Results.h"
#include "model/Settings.h"

namespace gazetteer {

/// The manager, with more to query than its default interface offers.
class CVNGazetteerManager : public ICVNGazetteerManager {
public:
    explicit CVNGazetteerManager(host::Ref<host::IHost> host);
    ~CVNGazetteerManager() override = default;

    void SetIndexElement(const host::Ref<host::IHostGroupElement>& indexElement) override;
    bool IsGazetteerElement(const host::Ref<host::IHostGroupElement>& groupElement) override;
    bool CanDrawIndex(const host::Ref<host::IHostGroupElement>& indexElement) override;
    void SetIndexToPageNumber(std::int32_t pageNumber) override;
    void DraftMode() override;
    host::Ref<host::IHostPropertySet> MakeGazetteerProperties() override;
    void AddGazetteerProperties(const host::Ref<host::IHostGroupElement>& groupElement,
                                const host::Ref<host::IHostPropertySet>& seriesProperties) override;
    void RemoveGazetteerProperties(const host::Ref<host::IHostGroupElement>& groupElement) override;
    void Reset() override;
    std::int16_t DefaultPage() override;
    void SetDefaultPageNumber(std::int32_t pageNumber) override;
    host::Variant PageCount() override;
    std::string FirstListing(std::int32_t pageNumber) override;
    std::string LastListing(std::int32_t pageNumber) override;
    host::Variant PageName(std::int32_t pageNumber) override;

    /// Details for hosts that show more than yes or no.
    /// @{
    /// Why the element could not be drawn or bound, after the last CanDrawIndex or SetIndexElement.
    const Findings& LastFindings() const { return findings_; }
    /// Whether the last binding ran the pipeline to its end, and the counts of its records.
    bool HasRun() const { return hasRun_; }
    const RunReport& LastRun() const { return report_; }
    /// What would be wrong on the pages of the results in use: noted by the run or, for stored
    /// results, by placing their rows again. Throws if that fails, as for a font that is too
    /// wide for its column by now.
    const PageFindings& FindingsOnPages();
    /// The results in use. Sets are null before the first binding that could draw.
    const WorkingResults& Working() const { return working_; }
    /// The settings as read at the binding.
    const Settings& BoundSettings() const { return settings_; }
    /// The listing database that the check opened last.
    const host::Ref<host::IHostTable>& DatabaseTable() const { return check_.databaseTable; }
    /// That of the linked map series frame, as the check found it; null without one.
    const host::Ref<host::IHostTable>& IndexLayerTable() const { return check_.indexLayerTable; }
    /// The linked map series frame; null without a valid link.
    host::Ref<host::IHostMapFrame> SeriesMapFrame() const {
        return check_.linkValid ? check_.seriesMapFrame : nullptr;
    }
    /// The bound element may be drawn.
    bool CanDraw() const { return canDraw_; }
    /// @}

private:
    void BindSettings(const host::Ref<host::IHostGroupElement>& indexElement);
    void TakeResults();
    void KeepCheck(ElementCheck check);
    void Reload();
    void PopulateIndexTable();
    void StoreResults();
    void DiscardResults(std::int32_t earlierPages);
    void MakeTransparentFill();
    void NoteFailure();
    void CheckPage(const char* operation, std::int32_t pageNumber) const;
    std::string ListingOf(const char* operation, std::int32_t pageNumber,
                          host::Ref<host::IHostPropertySet> WorkingResults::*listings,
                          const char* beyond);

    host::Ref<host::IHost> host_;
    SiblingObjects siblings_;
    host::Ref<host::IHostFillSymbol> transparentFill_;

    bool indexElementSet_ = false;
    host::Ref<host::IHostGroupElement> indexElement_;
    /// The element's live set: writing to it changes what is stored with the element.
    host::Ref<host::IHostPropertySet> properties_;
    /// Columns are the manager's own deep copy, so that all symbols of a run are its own.
    Settings settings_;
    /// What the last check opened, as far as it was valid.
    ElementCheck check_;
    bool canDraw_ = false;
    WorkingResults working_;

    Findings findings_;
    bool hasRun_ = false;
    RunReport report_;
    bool pagesJudged_ = false;  ///< The report has the findings on the pages.
};

}  // namespace gazetteer
