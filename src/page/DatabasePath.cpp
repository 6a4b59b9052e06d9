#include "page/DatabasePath.h"

#include "page/ControlValues.h"
#include "support/Conversions.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

constexpr char kEnding[] = ".dbf";

bool IsKind(const std::string& category, const char* kind) {
    return ToQt(category).compare(QLatin1String(kind), Qt::CaseInsensitive) == 0;
}

}  // namespace

std::string DatabasePath(const std::string& category, const std::string& fullName,
                         const std::string& typedName) {
    const bool isConnection = IsKind(category, "Folder Connection");
    if (!isConnection && !IsKind(category, "Folder")) return fullName;
    const bool hasEnding = typedName.find(kEnding) != std::string::npos;
    std::string path = fullName + '\\' + typedName + (hasEnding ? "" : kEnding);
    // A connection to the root of a drive ends in a backslash.
    if (isConnection && !fullName.starts_with("\\\\")) path = ReplaceAll(path, "\\\\", "\\");
    return path;
}

std::string PickListingDatabase(host::IHost& host) {
    const auto dialog = host.NewObjectDialog();
    dialog->SetObjectFilter(host.NewTableFilter());
    dialog->SetAllowMultiSelect(false);
    dialog->SetTitle("Output Table");
    host::Ref<host::IHostObjectSelection> selection;
    bool accepted = false;
    dialog->DoModal(host.NewApplication()->WindowHandle(), selection, accepted);
    if (!accepted) return {};
    Require<host::IHostObjectSelection>(selection)->Reset();
    const auto object = Require<host::IHostCatalogObject>(selection->Next());
    return DatabasePath(object->Category(), object->FullName(), dialog->Name());
}

}  // namespace gazetteer
