#include "page/StoredEdits.h"

#include "manager/CVNGazetteerManager.h"
#include "model/GeneralFunctions.h"
#include "support/Conversions.h"

namespace gazetteer {
namespace {

using host::IHostGroupElement;
using host::Ref;

// Skips commands that the host does not have.
void RunRefreshCommands(host::IHost& host) {
    const auto identifier = host.NewIdentifier();
    const auto application = host.NewApplication();
    for (const char* name : {"CVNLayoutsCmds.RefreshLayout", "CVNLayoutsCmds.RefreshTOC"}) {
        identifier->SetValue(name);
        const auto bars = application->Document()->CommandBars();
        if (const auto command = bars->Find(identifier, false, false)) command->Execute();
    }
}

Ref<IHostGroupElement> GazetteerIn(host::IHost& host, const Ref<host::IHostObject>& object) {
    const auto group = host::As<IHostGroupElement>(object);
    return group && HasGazetteerProperties(host, group) ? group : nullptr;
}

}  // namespace

void StoreEditsBeside(const QWidget& form) {
    for (auto* other : form.window()->findChildren<QWidget*>())
        if (auto* edits = dynamic_cast<EditsBeside*>(other)) edits->StoreEdits();
}

void DrawStoredEdits(const Ref<host::IHost>& host, const Ref<IHostGroupElement>& element) {
    CVNGazetteerManager manager(host);
    manager.SetIndexElement(element);
    if (manager.CanDrawIndex(element)) {
        if (Require<host::IHostFrameElement>(element)->Draft()) manager.DraftMode();
    } else {
        manager.DraftMode();
        Require<host::IHostFrameElement>(element)->SetDraft(true);
        host->Dialogs().MessageBox({.title = "Properties Incomplete",
                                    .text = "Gazetteer can not be drawn with current properties.",
                                    .style = host::kInformationOk});
    }
    RunRefreshCommands(*host);
}

Ref<IHostGroupElement> LastGazetteer(host::IHost& host, host::IHostObjectSet& objects) {
    Ref<IHostGroupElement> last;
    objects.Reset();
    for (auto object = objects.Next(); object; object = objects.Next())
        if (auto element = GazetteerIn(host, object)) last = std::move(element);
    return last;
}

bool HasGazetteer(host::IHost& host, host::IHostObjectSet& objects) {
    objects.Reset();
    for (auto object = objects.Next(); object; object = objects.Next())
        if (GazetteerIn(host, object)) return true;
    return false;
}

}  // namespace gazetteer
