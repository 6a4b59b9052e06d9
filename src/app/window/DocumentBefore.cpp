#include "app/window/DocumentBefore.h"

#include "model/GeneralFunctions.h"

namespace app {
namespace {

host::IHostFrameElement& StateOf(const host::Ref<host::IHostGroupElement>& element) {
    return *host::As<host::IHostFrameElement>(element);
}

void RestoreItems(host::IHostPropertySet& properties, const host::PropertyItems& items) {
    for (const auto& name : properties.AllItems().names) properties.RemoveItem(name);
    for (std::size_t i = 0; i < items.names.size(); ++i)
        properties.SetItem(items.names[i], items.values[i]);
}

}  // namespace

DocumentBefore::DocumentBefore(OpenDocument& document) : state_(document.Present()) {
    for (const auto& frame : state_.frames) {
        if (!gazetteer::HasGazetteerProperties(document.Host(), frame.element)) continue;
        const auto properties = gazetteer::StoredGazetteerProperties(frame.element);
        frames_.push_back(
            {frame.element, properties, properties->AllItems(), StateOf(frame.element).Draft()});
    }
}

void DocumentBefore::Restore(OpenDocument& document) const {
    document.Restore(state_);
    for (const Frame& frame : frames_) {
        RestoreItems(*frame.properties, frame.items);
        gazetteer::SetGazetteerProperties(document.Host(), frame.element, frame.properties);
        StateOf(frame.element).SetDraft(frame.draft);
    }
    for (const auto& frame : state_.frames)
        if (StateOf(frame.element).Draft()) frame.manager->DraftMode();
}

}  // namespace app
