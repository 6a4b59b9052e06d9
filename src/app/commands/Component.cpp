#include <filesystem>
#include <memory>

#include "app/commands/Commands.h"
#include "app/document/Errors.h"
#include "desk/components/ComponentLibrary.h"
#include "desk/session/Desk.h"

namespace app {
namespace {

constexpr char kLibrary[] = "gazetteer/libCVNGazetteer.so";

// Only these commands load the library, so the others need no display.
desk::ComponentLibrary LoadLibrary() {
    const std::string path = desk::LibraryOfProgram(kLibrary);
    if (!std::filesystem::exists(path))
        throw CommandError("The component library \"" + path +
                           "\" is not there; it is built and installed together with the window "
                           "part of the program.");
    return desk::ComponentLibrary(path);
}

int Register(const Options& options, bool install) {
    LoadLibrary().Register(std::make_shared<desk::Desk>(DeskOptionsOf(options)), install);
    return kDone;
}

}  // namespace

int InstallComponent(const Options& options) {
    return Register(options, true);
}

int UninstallComponent(const Options& options) {
    return Register(options, false);
}

}  // namespace app
