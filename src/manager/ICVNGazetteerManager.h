#pragma once

#include <cstdint>
#include <string>

#include "host/Host.h"

namespace gazetteer {

/// Binds to one gazetteer element, draws its index pages into it and answers questions about them.
///
/// All operations are top procedures: a failure is shown in the dialog of the failure convention,
/// and the operation returns normally with an empty result. Expected order of calls:
/// SetIndexElement, then queries and SetIndexToPageNumber in any order. IsGazetteerElement,
/// CanDrawIndex and the three operations on properties work on their arguments and need no binding.
/// Not thread-safe. A run blocks its caller and shows its progress in the status bar.
struct ICVNGazetteerManager : virtual host::IHostObject {
    /// Reads and checks the element, then reloads its stored results, or runs the pipeline and
    /// stores them where there are none. Raises for an element without gazetteer properties.
    virtual void SetIndexElement(const host::Ref<host::IHostGroupElement>& indexElement) = 0;
    virtual bool IsGazetteerElement(const host::Ref<host::IHostGroupElement>& groupElement) = 0;
    /// Checks an element; keeps only the findings.
    virtual bool CanDrawIndex(const host::Ref<host::IHostGroupElement>& indexElement) = 0;
    /// Draws a page, from 1 to PageCount, into the element.
    virtual void SetIndexToPageNumber(std::int32_t pageNumber) = 0;
    /// Removes the rows of a drawn page.
    virtual void DraftMode() = 0;
    /// A new property set of all defaults.
    virtual host::Ref<host::IHostPropertySet> MakeGazetteerProperties() = 0;
    virtual void AddGazetteerProperties(
        const host::Ref<host::IHostGroupElement>& groupElement,
        const host::Ref<host::IHostPropertySet>& seriesProperties) = 0;
    virtual void RemoveGazetteerProperties(
        const host::Ref<host::IHostGroupElement>& groupElement) = 0;
    /// Releases the bound objects. The page count is valid again after the next binding.
    virtual void Reset() = 0;

    /// The default page as it was at the binding. A value above 32767 is an overflow.
    virtual std::int16_t DefaultPage() = 0;
    /// Stores the default page with the element; DefaultPage returns it after the next binding.
    virtual void SetDefaultPageNumber(std::int32_t pageNumber) = 0;
    /// Number of pages, a Long; empty after a failure.
    virtual host::Variant PageCount() = 0;
    /// Text of a page's first or last listing; one blank for a page beyond the stored ones.
    virtual std::string FirstListing(std::int32_t pageNumber) = 0;
    virtual std::string LastListing(std::int32_t pageNumber) = 0;
    /// First and last listing joined by " - ", a String; empty after a failure.
    virtual host::Variant PageName(std::int32_t pageNumber) = 0;
};

}  // namespace gazetteer
