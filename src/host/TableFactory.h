#pragma once

#include "host/Tables.h"

namespace host {

/// Makes what opens, describes, searches and sorts tables.
struct IHostTableFactory : virtual IHostObject {
    virtual Ref<IHostScratchWorkspaceFactory> NewScratchWorkspaceFactory() = 0;
    virtual Ref<IHostWorkspaceFactory> NewWorkspaceFactory() = 0;
    virtual Ref<IHostFields> NewFields() = 0;
    virtual Ref<IHostField> NewField() = 0;
    virtual Ref<IHostQueryFilter> NewQueryFilter() = 0;
    virtual Ref<IHostIdentifier> NewIdentifier() = 0;
    virtual Ref<IHostTableSort> NewTableSort() = 0;
};

}  // namespace host
