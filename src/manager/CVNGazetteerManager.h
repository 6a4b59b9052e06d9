#pragma once

#include <cstdint>
#include <string>

#include "host/Host.h"
#include "manager/ElementCheck.h"
#include "model/Results.h"
#include "model/Settings.h"

namespace gazetteer {

/// Binds to one gazetteer element, draws its index pages into it and answers questions about them.
///
/// All public operations are top procedures: a failure is shown in the dialog of the failure
/// convention, and the operation returns normally with an empty result. Expected order of calls:
/// SetIndexElement, then queries and SetIndexToPageNumber in any order. IsGazetteerElement,
/// CanDrawIndex and the three operations on properties work on their arguments and need no binding.
/// Not for use by two threads; a run blocks its caller, with the status bar as its sign of life.
class CVNGazetteerManager {
public:
    explicit CVNGazetteerManager(host::Ref<host::IHost> host);
    ~CVNGazetteerManager() = default;
    CVNGazetteerManager(const CVNGazetteerManager&) = delete;
    CVNGazetteerManager& operator=(const CVNGazetteerManager&) = delete;

    /// Reads and checks the element, then reloads its stored results, or runs the pipeline and
    /// stores them where there are none. Raises for an element without gazetteer properties.
    void SetIndexElement(const host::Ref<host::IHostGroupElement>& indexElement);
    bool IsGazetteerElement(const host::Ref<host::IHostGroupElement>& groupElement);
    /// The element check without keeping anything.
    bool CanDrawIndex(const host::Ref<host::IHostGroupElement>& indexElement);
    /// Draws a page, from 1 to PageCount, into the element.
    void SetIndexToPageNumber(std::int32_t pageNumber);
    /// Takes the rows of a drawn page away.
    void DraftMode();
    /// A new property set of all defaults.
    host::Ref<host::IHostPropertySet> MakeGazetteerProperties();
    void AddGazetteerProperties(const host::Ref<host::IHostGroupElement>& groupElement,
                                const host::Ref<host::IHostPropertySet>& seriesProperties);
    void RemoveGazetteerProperties(const host::Ref<host::IHostGroupElement>& groupElement);
    /// Releases the bound objects. The page count counts again after the next binding.
    void Reset();

    /// The default page as it was at the binding. A value above 32767 is an overflow.
    std::int16_t DefaultPage();
    /// Stores the default page with the element; DefaultPage answers it after the next binding.
    void SetDefaultPageNumber(std::int32_t pageNumber);
    /// Number of pages, a Long; empty after a failure.
    host::Variant PageCount();
    /// Text of a page's first or last listing; one blank for a page beyond the stored ones.
    std::string FirstListing(std::int32_t pageNumber);
    std::string LastListing(std::int32_t pageNumber);
    /// First and last listing joined by " - ", a String; empty after a failure.
    host::Variant PageName(std::int32_t pageNumber);

    /// For those who can show more than yes or no. None of these raises anything.
    /// @{
    /// Why the element could not be drawn or bound, after the last CanDrawIndex or SetIndexElement.
    const Findings& LastFindings() const { return findings_; }
    /// Whether the last binding ran the pipeline to its end, and what became of the records.
    bool HasRun() const { return hasRun_; }
    const RunReport& LastRun() const { return report_; }
    /// The results in use. Sets are null before the first binding that could draw.
    const WorkingResults& Working() const { return working_; }
    /// The settings as read at the binding.
    const Settings& BoundSettings() const { return settings_; }
    /// The listing database that the check opened last.
    const host::Ref<host::IHostTable>& DatabaseTable() const { return check_.databaseTable; }
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
    /// What the check opened, kept where its parts are valid.
    ElementCheck check_;
    bool canDraw_ = false;
    WorkingResults working_;

    Findings findings_;
    bool hasRun_ = false;
    RunReport report_;
};

}  // namespace gazetteer
