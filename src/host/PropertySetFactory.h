#pragma once

#include "host/PropertySet.h"

namespace host {

/// Makes property sets, empty or as copies.
struct IHostPropertySetFactory : virtual IHostObject {
    virtual Ref<IHostPropertySet> NewPropertySet() = 0;
    virtual Ref<IHostObjectCopy> NewObjectCopy() = 0;
};

}  // namespace host
