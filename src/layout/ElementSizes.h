#pragma once

#include "host/Elements.h"
#include "host/GeometryFactory.h"

namespace gazetteer {

/// Inner procedures: height and width in inches of an element's bounds; of a group, those of all
/// its members.
double GetElementHeight(host::IHostGeometryFactory& host, host::IHostElement& element,
                        const host::Ref<host::IHostDisplay>& display);
double GetElementWidth(host::IHostGeometryFactory& host, host::IHostElement& element,
                       const host::Ref<host::IHostDisplay>& display);

/// The gazetteer element's own bounds, read fresh.
struct FrameBounds {
    host::Ref<host::IHostPoint> topLeft;
    double width = 0;
    double height = 0;
};
FrameBounds ReadFrame(const host::IHostElement& element);

}  // namespace gazetteer
