#pragma once

#include "host/Geometry.h"

namespace host {

/// Makes shapes that have no place yet.
struct IHostGeometryFactory : virtual IHostObject {
    virtual Ref<IHostPoint> NewPoint() = 0;
    virtual Ref<IHostEnvelope> NewEnvelope() = 0;
    virtual Ref<IHostLine> NewLine() = 0;
};

}  // namespace host
