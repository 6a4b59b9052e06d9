#pragma once

#include "host/Tables.h"

namespace host {

struct IHostCommandItem : virtual IHostObject {
    virtual void Execute() = 0;
};

/// The host's commands. A command's identifier has its name as value.
struct IHostCommandBars : virtual IHostObject {
    /// Null where there is no such command. Both flags are always false: nothing is made for a
    /// command that is not there, and none is searched on bars that are hidden.
    virtual Ref<IHostCommandItem> Find(const Ref<IHostIdentifier>& identifier, bool create,
                                       bool hidden) = 0;
};

}  // namespace host
