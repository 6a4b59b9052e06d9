#include "app/document/ResultSources.h"

#include "app/document/KeyValues.h"
#include "desk/documents/Document.h"
#include "desk/files/FileDigest.h"
#include "model/GeneralFunctions.h"
#include "model/KeyNames.h"
#include "support/Conversions.h"

namespace app {
namespace {

namespace keys = gazetteer::keys;
using host::IHostPropertySet;
using host::Ref;

constexpr char kSourcesKey[] = "GazetteerSources";

template <class T>
T ItemOr(IHostPropertySet& set, const char* key, T otherwise) {
    const auto item = ItemOf(set, key);
    const auto* const value = std::get_if<T>(&item);
    return value ? *value : otherwise;
}

// Only what a document of the desk can tell: a faulty value counts as none.
std::string PresentSources(OpenDocument& open) {
    const auto properties = open.Properties();
    const auto& desk = open.TheDesk();
    std::string sources = desk::FileDigest(
        desk.TableFile(ItemOr(*properties, keys::kIndexDatabaseFile, std::string())));
    if (sources.empty()) return {};
    if (!ItemOr(*properties, keys::kLinkToMapSeries, false)) return sources;
    auto files = desk.IndexLayerFiles();
    files.insert(files.begin(), desk::MapBookPath(open.TheDesk().CurrentDocument(), open.Path()));
    for (const auto& file : files) sources += ' ' + desk::FileDigest(file);
    return sources;
}

}  // namespace

std::string StoredSources(const Ref<host::IHostElement>& element) {
    const auto set = gazetteer::CorvaneProperties(element);
    return set ? ItemOr(*set, kSourcesKey, std::string()) : std::string();
}

void StoreSources(const Ref<host::IHostElement>& element, const std::string& sources) {
    if (StoredSources(element) == sources) return;
    if (const auto set = gazetteer::CorvaneProperties(element)) set->SetItem(kSourcesKey, sources);
}

void RecordSources(OpenDocument& open) {
    StoreSources(open.Gazetteer(), PresentSources(open));
}

bool SourcesChanged(OpenDocument& open) {
    const auto stored = StoredSources(open.Gazetteer());
    if (stored.empty() || !ItemOr(*open.Properties(), keys::kHaveSavedListings, false))
        return false;
    const auto present = PresentSources(open);
    return !present.empty() && present != stored;
}

bool DropOldResults(OpenDocument& open) {
    if (!SourcesChanged(open)) return false;
    // A set of its own: the history of edits shares the stored one.
    const auto properties = open.Host().NewPropertySet();
    const auto items = open.Properties()->AllItems();
    for (std::size_t i = 0; i < items.names.size(); ++i)
        properties->SetItem(items.names[i], items.values[i]);
    properties->SetItem(keys::kHaveSavedListings, false);
    return gazetteer::SetGazetteerProperties(open.Host(), open.Gazetteer(), properties);
}

void AddOldResults(OpenDocument& open, FindingList& list) {
    if (!SourcesChanged(open)) return;
    list.Add(findings::kOldResults, [&] {
        Finding finding{{},
                        "the listing database or the map book has changed since the pages were "
                        "made; \"generate\" (Refresh in the window) makes them anew."};
        finding.element = open.Gazetteer();
        return finding;
    });
}

}  // namespace app
