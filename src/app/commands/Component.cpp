#include <memory>

#include "app/commands/Commands.h"
#include "app/document/Errors.h"
#include "app/document/OwnComponent.h"

namespace app {

int InstallComponent(const Options& options) {
    RegisterOwnComponent(std::make_shared<desk::Desk>(DeskOptionsOf(options)), true);
    return kDone;
}

int UninstallComponent(const Options& options) {
    RegisterOwnComponent(std::make_shared<desk::Desk>(DeskOptionsOf(options)), false);
    return kDone;
}

}  // namespace app
