#include "page/DatabasePath.h"

#include <algorithm>

#include "support/Conversions.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

constexpr char kEnding[] = ".dbf";

// Categories are words of the host's own, of ASCII letters.
std::string Upper(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char c) {
        return static_cast<char>(c >= 'a' && c <= 'z' ? c - ('a' - 'A') : c);
    });
    return text;
}

}  // namespace

std::string DatabasePath(const std::string& category, const std::string& fullName,
                         const std::string& typedName) {
    const std::string kind = Upper(category);
    const bool isConnection = kind == "FOLDER CONNECTION";
    if (kind != "FOLDER" && !isConnection) return fullName;
    const bool hasEnding = typedName.find(kEnding) != std::string::npos;
    std::string path = fullName + '\\' + typedName + (hasEnding ? "" : kEnding);
    // A connection to the root of a drive ends in a backslash of its own.
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
