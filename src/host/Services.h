#pragma once

#include <string>

#include "host/Application.h"
#include "host/Component.h"
#include "host/Dialogs.h"
#include "host/Locale.h"

namespace host {

/// Services of the running program.
struct IHostServices : virtual IHostObject {
    virtual Ref<IHostApplication> NewApplication() = 0;
    virtual Ref<IHostComponentRegistrar> NewComponentRegistrar() = 0;
    virtual IHostLocale& Locale() = 0;
    virtual IHostDialogs& Dialogs() = 0;
    virtual bool FileExists(const std::string& path) = 0;
};

}  // namespace host
