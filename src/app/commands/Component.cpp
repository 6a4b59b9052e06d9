#include <filesystem>
#include <memory>
#include <utility>

#include "app/commands/Commands.h"
#include "app/commands/ConsoleDialogs.h"
#include "app/commands/HelpTexts.h"
#include "app/document/Errors.h"
#include "desk/components/ComponentLibrary.h"
#include "desk/session/Desk.h"

namespace app {
namespace {

constexpr char kLibrary[] = "gazetteer/libCVNGazetteer.so";

// The library is loaded for this command alone, so that the program itself needs no display.
desk::ComponentLibrary LoadLibrary() {
    const std::string path = desk::LibraryOfProgram(kLibrary);
    if (!std::filesystem::exists(path))
        throw CommandError("The component library \"" + path +
                           "\" is not there; it is built and installed together with the window "
                           "part of the program.");
    return desk::ComponentLibrary(path);
}

int Component(const CommonOptions& common, bool install) {
    desk::DeskOptions options;
    options.locale = common.locale;
    options.dialogs = std::make_shared<ConsoleDialogs>(common.verbose);
    LoadLibrary().Register(std::make_shared<desk::Desk>(std::move(options)), install);
    return kDone;
}

}  // namespace

void AddComponent(Arguments& program) {
    auto component = program.AddCommand("component", "Enter the property page with the desk");
    component.Help(kComponentHelp);
    AddCommand(component, "install", "Enter it",
               [](const CommonOptions& common) { return Component(common, true); });
    AddCommand(component, "uninstall", "Take it out",
               [](const CommonOptions& common) { return Component(common, false); });
}

}  // namespace app
