#include "app/document/OwnComponent.h"

#include <algorithm>
#include <filesystem>

#include "app/document/Errors.h"
#include "desk/components/ComponentLibrary.h"
#include "desk/components/Registrar.h"
#include "desk/components/SharedLibrary.h"
#include "host/PropertyPages.h"

namespace app {
namespace {

namespace fs = std::filesystem;

std::string OwnFile() {
    return desk::LibraryOfProgram("gazetteer/libCVNGazetteer.so");
}

}  // namespace

void RegisterOwnComponent(const std::shared_ptr<desk::Desk>& desk, bool install) {
    const std::string file = OwnFile();
    if (!fs::exists(file))
        throw CommandError("The component library \"" + file +
                           "\" is not there; it is built and installed together with the window "
                           "part of the program.");
    desk::ComponentLibrary(file).Register(desk, install);
}

void RegisterNewComponent(const std::shared_ptr<desk::Desk>& desk) {
    const fs::path own = OwnFile();
    if (!fs::exists(own)) return;
    const std::string list = desk::ComponentsFile();
    const auto entries = desk::Registrar(list).Entries(host::kElementPropertyPages);
    const bool isEntered = std::ranges::any_of(entries, [&](const desk::ComponentEntry& entry) {
        return fs::path(entry.file).filename() == own.filename();
    });
    if (isEntered || !fs::exists(list)) RegisterOwnComponent(desk, true);
}

}  // namespace app
