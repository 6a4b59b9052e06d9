#pragma once

#include "host/ObjectDialogs.h"

namespace host {

/// Makes dialogs. They fail where the host has no window.
struct IHostDialogFactory : virtual IHostObject {
    virtual Ref<IHostObjectDialog> NewObjectDialog() = 0;
    virtual Ref<IHostObjectFilter> NewTableFilter() = 0;
    virtual Ref<IHostSymbolDialog> NewSymbolDialog() = 0;
};

}  // namespace host
