#include <limits>

#include "manager/CVNGazetteerManager.h"
#include "model/KeyNames.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"

/// Queries of a bound manager.
namespace gazetteer {
namespace {

std::string Source(const char* operation) {
    return std::string("CVNGazetteerManager.") + operation;
}

}  // namespace

std::int16_t CVNGazetteerManager::DefaultPage() try {
    const std::string source = Source("DefaultPage");
    if (!indexElementSet_) Raise(source, "Index Element has not been set.");
    if (!canDraw_) Raise(source, "Index Element properties have not been set.");
    using Limits = std::numeric_limits<std::int16_t>;
    if (settings_.defaultPage < Limits::min() || settings_.defaultPage > Limits::max())
        throw host::Failure(host::kFailureOverflow, source, "Overflow");
    return static_cast<std::int16_t>(settings_.defaultPage);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "DefaultPage", kManagerLabel);
    return 0;
}

void CVNGazetteerManager::SetDefaultPageNumber(std::int32_t pageNumber) try {
    const std::string source = Source("SetDefaultPageNumber");
    if (!indexElementSet_) Raise(source, "MapFrame has not been set.");
    if (pageNumber < 0 || pageNumber > working_.pageCount)
        Raise(source, "Page number out of range.");
    properties_->SetItem(keys::kDefaultPage, pageNumber);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "SetDefaultPageNumber", kManagerLabel);
}

host::Variant CVNGazetteerManager::PageCount() try {
    if (!indexElementSet_) Raise(Source("PageCount"), "Index Element has not been set.");
    return working_.pageCount;
} catch (...) {
    ShowAtTop(host_->Dialogs(), "PageCount", kManagerLabel);
    return host::Empty{};
}

void CVNGazetteerManager::CheckPage(const char* operation, std::int32_t pageNumber) const {
    if (!indexElementSet_) Raise(Source(operation), "Index Element has not been set.");
    if (!canDraw_) Raise(Source(operation), "IndexElement properties have not been set.");
    if (pageNumber < 0 || pageNumber > working_.pageCount)
        Raise(Source(operation), "Page number out of range.");
}

// The stored text of a page, or `beyond` for a page that is not stored.
std::string CVNGazetteerManager::ListingOf(
    const char* operation, std::int32_t pageNumber,
    host::Ref<host::IHostPropertySet> WorkingResults::*listings, const char* beyond) {
    CheckPage(operation, pageNumber);
    const auto& set = working_.*listings;
    if (pageNumber > set->Count()) return beyond;
    return ToText(set->Item(std::to_string(pageNumber)), host_->Locale());
}

std::string CVNGazetteerManager::FirstListing(std::int32_t pageNumber) try {
    return ListingOf("FirstListing", pageNumber, &WorkingResults::firstListings, " ");
} catch (...) {
    ShowAtTop(host_->Dialogs(), "FirstListing", kManagerLabel);
    return {};
}

std::string CVNGazetteerManager::LastListing(std::int32_t pageNumber) try {
    return ListingOf("LastListing", pageNumber, &WorkingResults::lastListings, " ");
} catch (...) {
    ShowAtTop(host_->Dialogs(), "LastListing", kManagerLabel);
    return {};
}

host::Variant CVNGazetteerManager::PageName(std::int32_t pageNumber) try {
    std::string name = ListingOf("PageName", pageNumber, &WorkingResults::firstListings, "");
    const std::string last = ListingOf("PageName", pageNumber, &WorkingResults::lastListings, "");
    if (!name.empty()) name += " - ";
    return name + last;
} catch (...) {
    ShowAtTop(host_->Dialogs(), "PageName", kManagerLabel);
    return host::Empty{};
}

}  // namespace gazetteer
