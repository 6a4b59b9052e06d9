#include "app/document/DocumentState.h"

#include "app/document/ResultSources.h"
#include "model/GeneralFunctions.h"

namespace app {
namespace {

DocumentState::Element StateOf(host::IHost& host, const host::Ref<host::IHostElement>& element) {
    DocumentState::Element state;
    state.element = element;
    state.geometry = element->Geometry();
    if (const auto text = host::As<host::IHostTextElement>(element)) {
        state.symbol = text->Symbol();
        state.custom = host::As<host::IHostCustomProperty>(element)->CustomProperty();
    }
    if (const auto frame = host::As<host::IHostFrameElement>(element)) state.draft = frame->Draft();
    if (gazetteer::HasGazetteerProperties(host, element)) {
        state.properties = gazetteer::StoredGazetteerProperties(element);
        state.typesetting = gazetteer::StoredTypesetting(element, host.Locale());
    }
    state.sources = StoredSources(element);
    return state;
}

void Restore(host::IHost& host, const DocumentState::Element& state) {
    const auto& element = state.element;
    element->SetGeometry(state.geometry);
    if (const auto text = host::As<host::IHostTextElement>(element)) {
        text->SetSymbol(state.symbol);
        host::As<host::IHostCustomProperty>(element)->SetCustomProperty(state.custom);
    }
    if (const auto frame = host::As<host::IHostFrameElement>(element)) frame->SetDraft(state.draft);
    if (state.properties) {
        gazetteer::SetGazetteerProperties(host, element, state.properties);
        gazetteer::StoreTypesetting(host, element, state.typesetting);
    }
    StoreSources(element, state.sources);
}

}  // namespace

DocumentState StateOf(OpenDocument& open) {
    const auto& document = open.TheDesk().CurrentDocument();
    DocumentState state;
    state.title = document.title;
    state.pageWidth = document.pageWidth;
    state.pageHeight = document.pageHeight;
    state.firstSheet = document.firstSheet;
    for (const auto& element : document.elements)
        state.elements.push_back(StateOf(open.Host(), element));
    return state;
}

void Restore(OpenDocument& open, const DocumentState& state) {
    auto& document = open.TheDesk().CurrentDocument();
    document.title = state.title;
    document.pageWidth = state.pageWidth;
    document.pageHeight = state.pageHeight;
    document.firstSheet = state.firstSheet;
    document.elements.clear();
    for (const auto& element : state.elements) {
        Restore(open.Host(), element);
        document.elements.push_back(element.element);
    }
}

GazetteerItems::GazetteerItems(const DocumentState& state) {
    for (const auto& element : state.elements)
        if (element.properties)
            sets_.push_back({element.properties, element.properties->AllItems()});
}

void GazetteerItems::Restore() const {
    for (const auto& [properties, items] : sets_) {
        for (const auto& name : properties->AllItems().names) properties->RemoveItem(name);
        for (std::size_t i = 0; i < items.names.size(); ++i)
            properties->SetItem(items.names[i], items.values[i]);
    }
}

}  // namespace app
